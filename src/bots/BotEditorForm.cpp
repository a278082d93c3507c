#include "bots/BotEditorForm.h"

#include "bots/BotAttributes.h"
#include "bots/BotEditor1Form.h"
#include "bots/BotStore.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Timer.h"

#include <QKeyEvent>

namespace torvik {
namespace {

QByteArray botsFileBytes()
{
    QByteArray bytes;
    const QString path = platform::resolvePath(botsFilePath());
    if (path.isEmpty() || !platform::readFile(path, bytes))
        return QByteArray();
    return bytes;
}

} // namespace

BotEditorForm::BotEditorForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    ui.ListView1->setSortingEnabled(false);
    ui.ListView1->setSelectionMode(QAbstractItemView::SingleSelection);
    EditIndex = QStringLiteral("GREAT");

    connect(ui.Command1, &QPushButton::clicked, this, &BotEditorForm::addBot);
    connect(ui.Command2, &QPushButton::clicked, this, &BotEditorForm::editBot);
    connect(ui.Command3, &QPushButton::clicked, this, &BotEditorForm::deleteBot);
    connect(ui.Command4, &QPushButton::clicked, this, &BotEditorForm::saveBotList);
    connect(ui.Command5, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui.Command6, &QPushButton::clicked, this, &BotEditorForm::clearBots);
    connect(ui.ListView1, &QTreeWidget::itemDoubleClicked, this, &BotEditorForm::editBot);
    ui.ListView1->installEventFilter(this);

    // The load waits for the form to be up, so a big file reads behind it.
    Timer1 = new platform::Timer(this, 1, true);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    connect(Timer1, &platform::Timer::timeout, this, &BotEditorForm::loadBotList);
}

bool BotEditorForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui.ListView1 && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        deleteBot();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void BotEditorForm::loadBotList()
{
    Timer1->setEnabled(false);
    readBytes_ = botsFileBytes();
    Bots.clear();
    BotCount = 0;
    ui.ListView1->clear();
    const std::optional<std::vector<int>> listed = loadBots({});
    if (!listed)
        return;
    QList<QTreeWidgetItem*> items;
    items.reserve(qsizetype(listed->size()));
    for (int row : *listed)
        items << new QTreeWidgetItem(botCells(Bots[size_t(row)]));
    ui.ListView1->addTopLevelItems(items);
    // Bots whose model or skin isn't installed just now are in no list; a
    // save writes them back behind the others.
    unlisted_ = unlistedBots(*listed);
    loaded_ = true;
}

void BotEditorForm::addBot()
{
    BotEditor1Form form(ui.ListView1, this);
    form.startAdding();
    form.exec();
}

void BotEditorForm::editBot()
{
    if (ui.ListView1->topLevelItemCount() < 1)
        return;
    QTreeWidgetItem* item = ui.ListView1->currentItem();
    if (!item || !item->isSelected()) {
        platform::msgBox(QStringLiteral("No bot selected to edit."));
        return;
    }
    BotEditor1Form form(ui.ListView1, this);
    form.startEditing(ui.ListView1->indexOfTopLevelItem(item));
    form.exec();
}

void BotEditorForm::deleteBot()
{
    if (ui.ListView1->topLevelItemCount() < 1)
        return;
    QTreeWidgetItem* item = ui.ListView1->currentItem();
    if (!item || !item->isSelected() || item->text(0).isEmpty()) {
        platform::msgBox(QStringLiteral("Can't delete bot.  Not bot selected!"));
        return;
    }
    delete item;
}

void BotEditorForm::clearBots()
{
    const platform::Answer answer =
        platform::msgBox(QStringLiteral("Are you sure you want to clear the entire bot list?"), platform::Buttons::YesNo,
                         platform::Icon::Question, QStringLiteral("Clear Entire Bot List"));
    if (answer == platform::Answer::Yes)
        ui.ListView1->clear();
}

bool BotEditorForm::changedElsewhere() const
{
    return botsFileBytes() != readBytes_;
}

// A save that fails keeps the form and its working copy, so nothing typed is
// lost; the file stays as it was.
void BotEditorForm::saveBotList()
{
    // A file the load couldn't read shows as an empty list; writing that
    // list would put an empty bots section over the user's rows.
    if (!loaded_) {
        platform::beep();
        platform::msgBox(QStringLiteral("Bots.cfg couldn't be read, so the Bot Editor leaves it as it is."));
        return;
    }
    if (changedElsewhere()
        && platform::msgBox(QStringLiteral("Bots.cfg has been changed by another program since the Bot Editor read it. "
                                           "Saving replaces those changes. Save anyway?"),
                            platform::Buttons::YesNo, platform::Icon::Exclamation, QStringLiteral("Bot Editor"))
               != platform::Answer::Yes)
        return;
    std::vector<BotRecord> rows;
    rows.reserve(size_t(ui.ListView1->topLevelItemCount()));
    for (int i = 0; i < ui.ListView1->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = ui.ListView1->topLevelItem(i);
        QStringList cells;
        for (int c = 0; c < 9; ++c)
            cells << item->text(c);
        if (const std::optional<BotRecord> bot = botFromCells(cells))
            rows.push_back(*bot);
    }
    rows.insert(rows.end(), unlisted_.begin(), unlisted_.end());
    if (!SaveBots(rows))
        return;
    saved_ = true;
    accept();
}

} // namespace torvik
