#include "pages/PlayerSetupPage.h"

#include "bots/ModelViewer.h"
#include "bots/PlayerModels.h"
#include "command/Composer.h"
#include "media/EnlargedSkinForm.h"
#include "media/Pictures.h"
#include "pages/SavedControls.h"
#include "pages/TextBoxes.h"
#include "platform/Controls.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/ProgramContext.h"

#include <QSignalBlocker>

namespace pages {
namespace {

// The game reads the skin from its configuration inside double quotes and
// looks it up by the file name's bytes: only plain ASCII names get there
// whole.
bool sendableName(const QString& name)
{
    if (name.isEmpty())
        return false;
    for (QChar c : name)
        if (c.unicode() < 0x20 || c.unicode() > 0x7e || c == QLatin1Char('"'))
            return false;
    return true;
}

void endOver(const QString& message)
{
    platform::beep();
    platform::msgBox(message, platform::Buttons::Ok, platform::Icon::Critical);
    platform::exitProgram();
}

} // namespace

PlayerSetupPage::PlayerSetupPage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    ui.Combo3->addItems({QStringLiteral("Right"), QStringLiteral("Left"), QStringLiteral("Center")});
    ui.Combo3->setCurrentIndex(-1);
    ui.Combo4->addItems({QStringLiteral("None"), QStringLiteral("Cross"), QStringLiteral("Red Dot"), QStringLiteral("Angle")});
    ui.Combo4->setCurrentIndex(-1);

    platform::enableWhileChecked(ui.Check35, ui.Text13);
    // The game's configuration has no way to write a double quote inside a
    // quoted name: one there would split the name into words.
    keepLatin1(ui.Text13, QStringLiteral("\""));
    // Ticking a list's box shows its first row, whatever was chosen before.
    for (auto [box, list] : {std::pair{ui.Check41, ui.Combo3}, std::pair{ui.Check43, ui.Combo4}}) {
        QComboBox* combo = list;
        connect(box, &QCheckBox::toggled, this, [combo](bool on) {
            combo->setEnabled(on);
            if (on && combo->count() > 0)
                combo->setCurrentIndex(0);
        });
    }

    connect(ui.Check42, &QCheckBox::toggled, this, &PlayerSetupPage::useModelAndSkin);
    connect(ui.Combo5, &QComboBox::currentIndexChanged, this, &PlayerSetupPage::getSkins);
    connect(ui.Combo6, &QComboBox::currentIndexChanged, this, &PlayerSetupPage::showSkinPictures);
    connect(ui.Pic_Skin, &platform::ClickLabel::clicked, this, &PlayerSetupPage::showEnlargedSkin);
    connect(ui.Command22, &QPushButton::clicked, this, &PlayerSetupPage::viewModel);
}

void PlayerSetupPage::readAnswersInto(torvik::ComposerInput& in) const
{
    in.setName = ui.Check35->isChecked();
    in.playerName = ui.Text13->text();
    in.handOn = ui.Check41->isChecked();
    in.handIndex = ui.Combo3->currentIndex();
    in.crosshairOn = ui.Check43->isChecked();
    in.crosshairIndex = ui.Combo4->currentIndex();
    in.model = ui.Combo5->currentText();
    in.skin = ui.Combo6->currentText();
    // With no model or skin to name, the game keeps the player's own rather
    // than get a skin it can't find.
    in.skinOn = ui.Check42->isChecked() && sendableName(in.model) && sendableName(in.skin);
}

QString PlayerSetupPage::playersFolder() const
{
    return platform::joinPath(platform::programContext.gameFolder(), QStringLiteral("baseq2/players"));
}

QString PlayerSetupPage::modelFolder() const
{
    const QString model = ui.Combo5->currentText();
    return model.isEmpty() ? QString() : platform::resolvePath(platform::joinPath(playersFolder(), model));
}

// The chosen skin's file with this ending ("_i.pcx" for the face), as spelt
// on disk; empty when it isn't there.
QString PlayerSetupPage::skinFile(const QString& suffix) const
{
    const QString folder = modelFolder();
    const QString skin = ui.Combo6->currentText();
    if (folder.isEmpty() || skin.isEmpty())
        return QString();
    const QString path = platform::resolvePath(platform::joinPath(folder, skin + suffix));
    return platform::fileExists(path) ? path : QString();
}

void PlayerSetupPage::useModelAndSkin(bool on)
{
    ui.Combo5->setEnabled(on);
    ui.Combo6->setEnabled(on);
    ui.Command22->setEnabled(on);
    if (!on) {
        const QSignalBlocker models(ui.Combo5);
        const QSignalBlocker skins(ui.Combo6);
        ui.Combo6->clear();
        ui.Combo5->clear();
        media::clearGamePicture(ui.Pic_Face);
        media::clearGamePicture(ui.Pic_Skin);
        ui.Pic_Face->setVisible(false);
        ui.Pic_Skin->setVisible(false);
        return;
    }
    if (getModels())
        getSkins();
}

bool PlayerSetupPage::getModels()
{
    const QSignalBlocker blocker(ui.Combo5);
    ui.Combo5->clear();
    const platform::ProgramContext& context = platform::programContext;
    const QSet<QString> archived = torvik::modelsWithMeshInArchives(
        {platform::joinPath(context.gameFolder(), QStringLiteral("baseq2")), context.modFolder()});
    const torvik::ModelList found = torvik::findPlayerModels(playersFolder(), archived);
    if (!found.readable) {
        endOver(QStringLiteral("Error! Couldn't load models.  Check to make sure there are models installed. Ending Torvik"));
        return false;
    }
    ui.Combo5->addItems(found.models);
    ui.Combo5->setCurrentIndex(found.models.isEmpty() ? -1 : 0);
    return true;
}

bool PlayerSetupPage::getSkins()
{
    {
        const QSignalBlocker blocker(ui.Combo6);
        ui.Combo6->clear();
    }
    const QString folder = modelFolder();
    if (ui.Combo5->currentText().isEmpty()) {
        showSkinPictures();
        return true;
    }
    QStringList skins;
    if (!torvik::findSkins(folder.isEmpty() ? platform::joinPath(playersFolder(), ui.Combo5->currentText()) : folder, &skins)) {
        endOver(QStringLiteral("Error! Couldn't load skins.  Check to make sure there are skins installed. Ending Torvik"));
        return false;
    }
    {
        const QSignalBlocker blocker(ui.Combo6);
        ui.Combo6->addItems(skins);
        ui.Combo6->setCurrentIndex(skins.isEmpty() ? -1 : 0);
    }
    showSkinPictures();
    return true;
}

void PlayerSetupPage::showSkinPictures()
{
    const bool on = ui.Check42->isChecked() && !ui.Combo6->currentText().isEmpty();
    for (auto [box, suffix] : {std::pair{ui.Pic_Face, "_i.pcx"}, std::pair{ui.Pic_Skin, ".pcx"}}) {
        const QString file = on ? skinFile(QString::fromLatin1(suffix)) : QString();
        if (file.isEmpty())
            media::clearGamePicture(box);
        else
            media::showGamePicture(box, file);
        box->setVisible(on);
    }
}

void PlayerSetupPage::showEnlargedSkin()
{
    const QString file = ui.Pic_Skin->property(media::kPictureFileProperty).toString();
    if (file.isEmpty())
        return;
    media::EnlargedSkinForm form(file, window());
    form.exec();
}

void PlayerSetupPage::viewModel()
{
    torvik::startModelViewer(playersFolder(), ui.Combo5->currentText(), ui.Combo6->currentText());
}

void PlayerSetupPage::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    saveChecks(saved, {ui.Check35, ui.Check41, ui.Check42, ui.Check43});
    saveTexts(saved, {ui.Text13});
    saved.handIndex = ui.Combo3->currentIndex();
    saved.crosshairIndex = ui.Combo4->currentIndex();
    saved.model = ui.Combo5->currentText();
    saved.skin = ui.Combo6->currentText();
}

// A list is set only when its box is on, as the box puts its first row up.
void PlayerSetupPage::restoreAnswersFrom(const datafile::SavedAnswers& saved)
{
    restoreChecks(saved, {ui.Check35, ui.Check41, ui.Check42, ui.Check43});
    restoreTexts(saved, {ui.Text13});
    if (ui.Check43->isChecked())
        chooseRow(ui.Combo4, saved.crosshairIndex);
    if (ui.Check42->isChecked()) {
        chooseRowNamed(ui.Combo5, saved.model);
        chooseRowNamed(ui.Combo6, saved.skin);
    }
    if (ui.Check41->isChecked())
        chooseRow(ui.Combo3, saved.handIndex);
}

} // namespace pages
