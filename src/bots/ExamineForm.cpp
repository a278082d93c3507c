#include "bots/ExamineForm.h"

#include "bots/BotAttributes.h"
#include "bots/BotStore.h"
#include "bots/Examination.h"
#include "bots/ModelViewer.h"
#include "media/Pictures.h"
#include "media/Sound.h"
#include "platform/Files.h"

namespace torvik {

ExamineForm::ExamineForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    connect(ui.Command1, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui.Command2, &QPushButton::clicked, this, &ExamineForm::viewModel);
    connect(ui.Command3, &QPushButton::clicked, this, &ExamineForm::playChosenSound);
    connect(ui.File2, &QListWidget::itemDoubleClicked, this, &ExamineForm::playChosenSound);
    showBot();
}

// Files that went missing since the bots were listed show only as notes in
// the caption and as empty pictures.
void ExamineForm::showBot()
{
    const QString players = playersFolderPath();
    ui.Frame1->setTitle(ExamineName);
    ui.Label10->setText(ExamineModel);
    QString modelFolder;
    for (const QString& folder : platform::listFolders(players))
        if (folder.toUpper() == ExamineModel.toUpper())
            modelFolder = platform::joinPath(players, folder);
    QString face;
    QString skin;
    if (!modelFolder.isEmpty()) {
        for (const QString& file : platform::listFiles(modelFolder, {QStringLiteral("*.pcx")})) {
            if (file.toUpper() == ExamineSkin.toUpper() + QStringLiteral("_I.PCX"))
                face = platform::joinPath(modelFolder, file);
            if (file.toUpper() == ExamineSkin.toUpper() + QStringLiteral(".PCX"))
                skin = platform::joinPath(modelFolder, file);
        }
    }
    media::clearGamePicture(ui.Pic_Show);
    media::clearGamePicture(ui.Skin_Show);
    if (!face.isEmpty())
        media::showGamePicture(ui.Pic_Show, face);
    if (!skin.isEmpty())
        media::showGamePicture(ui.Skin_Show, skin);
    QString notes;
    if (modelFolder.isEmpty())
        notes += QStringLiteral(" {Model not found}");
    if (face.isEmpty())
        notes += QStringLiteral(" {Pic not found}");
    if (skin.isEmpty())
        notes += QStringLiteral(" {Skin not found}");
    setWindowTitle(QStringLiteral("Examine") + notes);
    ui.Label11->setText(ExamineSkin);
    ui.Label14->setText(ExaminePing);

    const QString* values[] = {&ExamineAccuracy,       &ExamineAggressiveness, &ExamineCombatSkills,
                               &ExamineFavoriteWeapon, &ExamineQuadFreak,      &ExamineCamper};
    QLabel* const boxes[] = {ui.accpix, ui.aggpix, ui.skillpix, ui.fwpix, ui.quadpix, ui.camperpix};
    for (int i = 0; i < 6; ++i) {
        bool number = false;
        const int value = values[i]->toInt(&number);
        // A text that is no number has no picture; -1 is outside every range.
        showAttributePicture(boxes[i], kAttributes[size_t(i)], number ? value : -1);
    }
    ui.File2->clear();
    if (!modelFolder.isEmpty())
        ui.File2->addItems(platform::listFiles(modelFolder, {QStringLiteral("*.wav")}));
}

// The sound service never blocks and stays quiet without a sound device.
void ExamineForm::playChosenSound()
{
    const QListWidgetItem* row = ui.File2->currentItem();
    if (ui.File2->count() < 1 || !row || !row->isSelected())
        return;
    const QString folder = platform::joinPath(playersFolderPath(), ui.Label10->text());
    const QString real = platform::resolvePath(folder);
    media::playSound(platform::joinPath(real.isEmpty() ? folder : real, row->text()));
}

void ExamineForm::viewModel()
{
    startModelViewer(playersFolderPath(), ui.Label10->text(), ui.Label11->text());
}

void examineBot(const QStringList& rowCells, QWidget* parent)
{
    const QStringList cells = rowCells + QStringList(qMax(0, 9 - int(rowCells.size())), QString());
    ExamineName = cells[0];
    const qsizetype slash = cells[1].indexOf(QLatin1Char('/'));
    ExamineModel = slash < 0 ? cells[1] : cells[1].left(slash);
    ExamineSkin = slash < 0 ? QString() : cells[1].mid(slash + 1);
    ExamineAccuracy = cells[2];
    ExamineAggressiveness = cells[3];
    ExamineCombatSkills = cells[4];
    ExamineFavoriteWeapon = cells[5];
    ExamineQuadFreak = cells[6];
    ExamineCamper = cells[7];
    ExaminePing = cells[8];
    ExamineForm form(parent);
    form.exec();
}

} // namespace torvik
