#include "bots/BotEditor1Form.h"

#include "bots/BotAttributes.h"
#include "bots/BotEditorForm.h"
#include "bots/BotListing.h"
#include "bots/ModelViewer.h"
#include "bots/PlayerModels.h"
#include "media/Pictures.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/NumericBoxes.h"
#include "platform/ProgramContext.h"
#include "platform/Random.h"

#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTreeWidget>

#include <algorithm>

namespace torvik {
namespace {

// The row whose text matches without regard to case; row 0 when none does.
int rowNamed(const QListWidget* list, const QString& text)
{
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->text().toUpper() == text.toUpper())
            return i;
    return 0;
}

void selectRow(QListWidget* list, int row)
{
    if (row >= 0 && row < list->count())
        list->setCurrentRow(row);
}

// Once a bot was taken the list stays in name order without regard to case;
// equal names keep their order.
void sortByName(QTreeWidget* list)
{
    QList<QTreeWidgetItem*> items;
    while (list->topLevelItemCount() > 0)
        items << list->takeTopLevelItem(0);
    std::stable_sort(items.begin(), items.end(), [](const QTreeWidgetItem* a, const QTreeWidgetItem* b) {
        return a->text(0).toCaseFolded() < b->text(0).toCaseFolded();
    });
    list->addTopLevelItems(items);
}

} // namespace

BotEditor1Form::BotEditor1Form(QTreeWidget* botList, QWidget* parent) : QDialog(parent), botList_(botList)
{
    ui.setupUi(this);
    platform::AttachNumericBox(ui.Text2, platform::FixedRule(0, 400, "1", {QStringLiteral("00")}));
    connect(ui.Text1, &QLineEdit::textChanged, this, &BotEditor1Form::dropBlanksFromName);
    connect(ui.List1, &QListWidget::currentRowChanged, this, &BotEditor1Form::getSkins);
    connect(ui.List2, &QListWidget::currentRowChanged, this, [this] {
        if (EditLoading != 1)
            showSkinPictures();
    });
    for (int i = 0; i < 6; ++i)
        connect(slider(i), &QScrollBar::valueChanged, this, &BotEditor1Form::showAttributePictures);
    connect(ui.Command1, &QPushButton::clicked, this, &BotEditor1Form::randomAttributes);
    connect(ui.Command2, &QPushButton::clicked, this, &BotEditor1Form::viewModel);
    connect(ui.Command3, &QPushButton::clicked, this, &BotEditor1Form::takeBot);
    connect(ui.Command4, &QPushButton::clicked, this, &QDialog::reject);
    showAttributePictures();
}

QScrollBar* BotEditor1Form::slider(int i) const
{
    QScrollBar* const sliders[] = {ui.HScroll1, ui.HScroll2, ui.HScroll3, ui.HScroll4, ui.HScroll5, ui.HScroll6};
    return sliders[i];
}

void BotEditor1Form::startAdding()
{
    ui.Text1->setText(QStringLiteral("Player"));
    ui.Text2->setText(QStringLiteral("100"));
    for (int i = 0; i < 6; ++i)
        slider(i)->setValue(i < 4 ? 1 : 0);
    ui.List1->clear();
    ui.List2->clear();
    EditIndex = QStringLiteral("GREAT");
    getModels();
}

void BotEditor1Form::startEditing(int row)
{
    const QTreeWidgetItem* item = botList_->topLevelItem(row);
    if (!item)
        return;
    EditLoading = 1;
    EditIndex = QString::number(row);
    getModels();
    ui.Text1->setText(item->text(0));
    const QString modelSkin = item->text(1);
    const qsizetype slash = modelSkin.indexOf(QLatin1Char('/'));
    selectRow(ui.List1, rowNamed(ui.List1, slash < 0 ? modelSkin : modelSkin.left(slash)));
    selectRow(ui.List2, rowNamed(ui.List2, slash < 0 ? QString() : modelSkin.mid(slash + 1)));
    EditLoading = 0;
    showSkinPictures();
    for (int i = 0; i < 6; ++i) {
        const int value = item->text(2 + i).toInt();
        slider(i)->setValue(i == 3 && value == 0 ? 10 : value);
    }
    ui.Text2->setText(item->text(8));
}

// The models with a skin and a mesh, as the player page lists them; a
// players folder that can't be read lists none.
void BotEditor1Form::getModels()
{
    const platform::ProgramContext& context = platform::programContext;
    const QSet<QString> archived = modelsWithMeshInArchives(
        {platform::joinPath(context.gameFolder(), QStringLiteral("baseq2")), context.modFolder()});
    const ModelList found = findPlayerModels(playersFolderPath(), archived);
    {
        const QSignalBlocker blocker(ui.List1);
        ui.List1->clear();
        ui.List1->addItems(found.models);
    }
    if (ui.List1->count() > 0)
        ui.List1->setCurrentRow(0);
    else
        getSkins();
}

void BotEditor1Form::getSkins()
{
    {
        const QSignalBlocker blocker(ui.List2);
        ui.List2->clear();
    }
    QStringList skins;
    if (ui.List1->currentItem())
        findSkins(platform::joinPath(playersFolderPath(), ui.List1->currentItem()->text()), &skins);
    for (QString& skin : skins)
        skin = skin.toLower();
    {
        const QSignalBlocker blocker(ui.List2);
        ui.List2->addItems(skins);
    }
    if (ui.List2->count() > 0)
        ui.List2->setCurrentRow(0);
    else if (EditLoading != 1)
        showSkinPictures();
}

void BotEditor1Form::showSkinPictures()
{
    const QListWidgetItem* model = ui.List1->currentItem();
    const QListWidgetItem* skin = ui.List2->currentItem();
    for (auto [box, suffix] : {std::pair{ui.Pic_Show, "_i.pcx"}, std::pair{ui.Skin_Show, ".pcx"}}) {
        const QString file = model && skin ? platform::resolvePath(platform::joinPath(
                                                 platform::joinPath(playersFolderPath(), model->text()),
                                                 skin->text() + QString::fromLatin1(suffix)))
                                           : QString();
        if (file.isEmpty())
            media::clearGamePicture(box);
        else
            media::showGamePicture(box, file);
    }
}

// The file's rows and the team member lists are split at blanks.
void BotEditor1Form::dropBlanksFromName(const QString& text)
{
    if (text.contains(QLatin1Char(' ')))
        ui.Text1->setText(QString(text).remove(QLatin1Char(' ')));
}

void BotEditor1Form::showAttributePictures()
{
    QLabel* const boxes[] = {ui.accpix, ui.aggpix, ui.skillpix, ui.fwpix, ui.quadpix, ui.camperpix};
    for (int i = 0; i < 6; ++i) {
        int value = slider(i)->value();
        if (kAttributes[size_t(i)] == Attribute::FavoriteWeapon && value == 10)
            value = 0;
        showAttributePicture(boxes[i], kAttributes[size_t(i)], value);
    }
}

// The ping is drawn up to 500 and left to the box's own rule, which makes a
// ping above 400 into 1.
void BotEditor1Form::randomAttributes()
{
    auto draw = [](int count) { return int(platform::randomFraction() * count); };
    ui.HScroll1->setValue(draw(5) + 1);
    ui.HScroll2->setValue(draw(5) + 1);
    ui.HScroll3->setValue(draw(5) + 1);
    ui.HScroll4->setValue(draw(10) + 1);
    ui.HScroll5->setValue(draw(2));
    ui.HScroll6->setValue(draw(2));
    ui.Text2->setText(QString::number(draw(500) + 1));
}

void BotEditor1Form::viewModel()
{
    const QListWidgetItem* model = ui.List1->currentItem();
    const QListWidgetItem* skin = ui.List2->currentItem();
    startModelViewer(playersFolderPath(), model ? model->text() : QString(), skin ? skin->text() : QString());
}

void BotEditor1Form::takeBot()
{
    if (ui.Text1->text().isEmpty()) {
        platform::msgBox(QStringLiteral("You didn't specify a name."));
        return;
    }
    // The file quotes each name, and team rows list members inside brackets:
    // either mark in a name would end the name early for the mod's reader.
    if (ui.Text1->text().contains(QRegularExpression(QStringLiteral("[\"\\[\\]]")))) {
        platform::msgBox(QStringLiteral("A bot's name can't hold quotation marks or brackets."));
        return;
    }
    if (ui.Text2->text().isEmpty()) {
        platform::msgBox(QStringLiteral("You didn't specify an average ping."));
        return;
    }
    if (!ui.List1->currentItem())
        selectRow(ui.List1, 0);
    if (!ui.List2->currentItem())
        selectRow(ui.List2, 0);
    const QString model = ui.List1->currentItem() ? ui.List1->currentItem()->text() : QString();
    const QString skin = ui.List2->currentItem() ? ui.List2->currentItem()->text() : QString();
    const int weapon = ui.HScroll4->value() == 10 ? 0 : ui.HScroll4->value();
    const QStringList cells{ui.Text1->text(),
                            model + QLatin1Char('/') + skin,
                            QString::number(ui.HScroll1->value()),
                            QString::number(ui.HScroll2->value()),
                            QString::number(ui.HScroll3->value()),
                            QString::number(weapon),
                            QString::number(ui.HScroll5->value()),
                            QString::number(ui.HScroll6->value()),
                            ui.Text2->text()};
    if (EditIndex != QLatin1String("GREAT"))
        delete botList_->topLevelItem(EditIndex.toInt());
    botList_->addTopLevelItem(new QTreeWidgetItem(cells));
    sortByName(botList_);
    accept();
}

} // namespace torvik
