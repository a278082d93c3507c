#include "bots/TeamEditForm.h"

#include "bots/BotAttributes.h"
#include "bots/Examination.h"
#include "bots/PlayerModels.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"

#include <QEvent>
#include <QMouseEvent>
#include <QStyle>

namespace torvik {

namespace {

// Right presses on the member list: the examination shows the row last
// clicked, as the bot page does, not the one under the pointer.
class RightPress : public QObject {
public:
    RightPress(QWidget* viewport, std::function<void()> onPress) : QObject(viewport), onPress_(std::move(onPress))
    {
        viewport->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonPress
            && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
            onPress_();
        return false;
    }

private:
    std::function<void()> onPress_;
};

} // namespace

TeamEditForm::TeamEditForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    ui.ListView2->setHeaderLabels({QStringLiteral("Bot Name(s)"), QStringLiteral("Model/Skin"),
                                   QStringLiteral("Accuracy"), QStringLiteral("Agresiveness"),
                                   QStringLiteral("Combat Skills"), QStringLiteral("Favorite Weapon"),
                                   QStringLiteral("Quad Freak"), QStringLiteral("Camper"),
                                   QStringLiteral("Average Ping")});
    connect(ui.Text1, &QLineEdit::textChanged, this, &TeamEditForm::dropBlanksFromName);
    connect(ui.Check1, &QCheckBox::toggled, this, &TeamEditForm::useNoModel);
    connect(ui.List1, &QListWidget::currentRowChanged, this, &TeamEditForm::listSkins);
    connect(ui.ListView2, &QTreeWidget::itemDoubleClicked, this, &TeamEditForm::toggleMember);
    connect(ui.ListView2, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { lastMember_ = ui.ListView2->indexOfTopLevelItem(item); });
    new RightPress(ui.ListView2->viewport(), [this] { examineMember(); });
    connect(ui.Command3, &QPushButton::clicked, this, &TeamEditForm::takeTeam);
    connect(ui.Command4, &QPushButton::clicked, this, &QDialog::reject);
}

bool TeamEditForm::listBots()
{
    ui.ListView2->clear();
    lastMember_ = -1;
    listed_.clear();
    unlisted_.clear();
    const std::optional<std::vector<int>> rows = loadBots(ProgressFn{});
    if (!rows)
        return false;
    // Bots whose model isn't installed just now are in no list; a save writes
    // them back behind the listed ones.
    unlisted_ = unlistedBots(*rows);
    QList<QTreeWidgetItem*> items;
    for (int row : *rows) {
        const BotRecord& b = Bots[size_t(row)];
        listed_.push_back(b);
        items << new QTreeWidgetItem(botCells(b));
    }
    ui.ListView2->addTopLevelItems(items);
    return true;
}

void TeamEditForm::listModels()
{
    ui.List1->clear();
    ui.List1->addItems(platform::listFolders(playersFolderPath()));
    ui.List1->setCurrentRow(0);
}

void TeamEditForm::listSkins()
{
    ui.List2->clear();
    const QListWidgetItem* model = ui.List1->currentItem();
    QStringList skins;
    if (!model || !findSkins(platform::joinPath(playersFolderPath(), model->text()), &skins))
        return;
    for (const QString& skin : skins)
        ui.List2->addItem(skin.toLower());
    ui.List2->setCurrentRow(0);
}

void TeamEditForm::startNewTeam()
{
    listModels();
    ui.Check1->setChecked(false);
    useNoModel(false);
    ui.Text1->setText(QStringLiteral("Team"));
    ui.Text2->setText(QStringLiteral("TM"));
}

void TeamEditForm::selectRowByText(QListWidget* list, const QString& text)
{
    const QString wanted = text.toUpper();
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->text().toUpper() == wanted) {
            list->setCurrentRow(row);
            return;
        }
    list->setCurrentRow(list->count() > 0 ? 0 : -1);
}

void TeamEditForm::startEditing(const TeamRecord& team)
{
    listModels();
    ui.Text1->setText(team.Name);
    ui.Text2->setText(team.Abbreviation);
    if (!team.ModelSkin.isEmpty()) {
        ui.Check1->setChecked(false);
        useNoModel(false);
        const qsizetype slash = team.ModelSkin.indexOf(QLatin1Char('/'));
        selectRowByText(ui.List1, team.ModelSkin.left(slash));
        selectRowByText(ui.List2, slash < 0 ? QString() : team.ModelSkin.mid(slash + 1));
    } else {
        ui.Check1->setChecked(true);
        useNoModel(true);
    }
    // A member whose bot isn't listed has no row to tick, so Done leaves it out.
    for (const QString& name : team.Members.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString wanted = name.toUpper();
        for (int row = 0; row < ui.ListView2->topLevelItemCount(); ++row) {
            QTreeWidgetItem* item = ui.ListView2->topLevelItem(row);
            if (item->text(0).toUpper() == wanted) {
                setMember(item, true);
                break;
            }
        }
    }
}

// Neither a bots.cfg row nor a member list can hold a blank in a name.
void TeamEditForm::dropBlanksFromName()
{
    const QString text = ui.Text1->text();
    if (text.contains(QLatin1Char(' ')))
        ui.Text1->setText(QString(text).remove(QLatin1Char(' ')));
}

void TeamEditForm::useNoModel(bool none)
{
    ui.List1->setEnabled(!none);
    ui.List2->setEnabled(!none);
}

bool TeamEditForm::isMember(const QTreeWidgetItem* item) const { return !item->icon(0).isNull(); }

void TeamEditForm::setMember(QTreeWidgetItem* item, bool member)
{
    item->setIcon(0, member ? style()->standardIcon(QStyle::SP_DialogApplyButton) : QIcon());
}

void TeamEditForm::toggleMember(QTreeWidgetItem* item)
{
    if (item)
        setMember(item, !isMember(item));
}

void TeamEditForm::examineMember()
{
    QTreeWidgetItem* item = lastMember_ < 0 ? nullptr : ui.ListView2->topLevelItem(lastMember_);
    if (!item)
        return;
    QStringList cells;
    for (int column = 0; column < item->columnCount(); ++column)
        cells << item->text(column);
    examineBot(cells, this);
}

void TeamEditForm::takeTeam()
{
    if (ui.Text1->text().isEmpty()) {
        platform::msgBox(QStringLiteral("You didn't specify a team name!"));
        return;
    }
    edited_ = TeamRecord{ui.Text1->text(), ui.Text2->text(), QString(), QString()};
    // Without a row chosen the first is taken; a players folder without
    // models leaves the team without one rather than with a bare slash.
    if (!ui.Check1->isChecked() && ui.List1->count() > 0) {
        const QListWidgetItem* model = ui.List1->currentItem() ? ui.List1->currentItem() : ui.List1->item(0);
        const QListWidgetItem* skin = ui.List2->currentItem() ? ui.List2->currentItem() : ui.List2->item(0);
        edited_.ModelSkin = model->text() + QLatin1Char('/') + (skin ? skin->text() : QString());
    }
    for (int row = 0; row < ui.ListView2->topLevelItemCount(); ++row)
        if (isMember(ui.ListView2->topLevelItem(row)))
            edited_.Members += ui.ListView2->topLevelItem(row)->text(0) + QLatin1Char(' ');
    TeamEditIndex.clear();
    accept();
}

} // namespace torvik
