// The bot and team pages of the main form: the lists filled from bots.cfg,
// the two views of each selection, the counter, Refresh, and the CTF team
// lists that are built from the chosen bots.
#include "bots/BotStore.h"
#include "bots/Examination.h"
#include "pages/BotViews.h"
#include "pages/NumericBox.h"
#include "platform/Dialogs.h"
#include "platform/Timer.h"
#include "wizard/Globals.h"
#include "wizard/MainForm.h"
#include "wizard/ProgressForm.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPointer>

#include <functional>

namespace torvik {
namespace {

using pages::iconKey;
using pages::kCheckKey;
using pages::setIconKey;

// Left double clicks anywhere in a report view, on a row or not, and right
// presses: the pages act on the row last clicked, not on the one under the
// pointer.
class ViewMouse : public QObject {
public:
    ViewMouse(QAbstractItemView* view, std::function<void()> doubleClick, std::function<void()> rightPress = {})
        : QObject(view), doubleClick_(std::move(doubleClick)), rightPress_(std::move(rightPress))
    {
        view->viewport()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonDblClick
            && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && doubleClick_)
            doubleClick_();
        else if (event->type() == QEvent::MouseButtonPress
                 && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton && rightPress_)
            rightPress_();
        return false;
    }

private:
    std::function<void()> doubleClick_;
    std::function<void()> rightPress_;
};

int selectedCount(const QListWidget* list) { return int(list->selectedItems().size()); }

// A double click takes a row in or out of the selection; the report view
// shows it by its tick, the simple list by its highlight.
void toggleMarkedRow(QTreeWidgetItem* item, QListWidgetItem* row)
{
    const bool marked = iconKey(item) == kCheckKey;
    setIconKey(item, marked ? QString() : kCheckKey);
    row->setSelected(!marked);
}

} // namespace

void MainForm::SetupBotPages()
{
    auto& sb = ui.SpawnBots->ui;
    auto& tm = ui.Teams->ui;
    auto& ctf = ui.CTFflags->ui;

    const QPointer<MainForm> self(this);
    RestoreBotsCfgHook = [self] {
        if (self)
            self->RestoreBotsCfg();
    };

    Progress = new ProgressForm(this);

    // The two views of each page stand at one place, one of them shown.
    pages::clearReportColumns(sb.ListView1);
    pages::clearReportColumns(tm.ListView2);
    for (QTreeWidget* view : {sb.ListView1, tm.ListView2}) {
        view->setSortingEnabled(false);
        view->setSelectionMode(QAbstractItemView::SingleSelection);
        view->setIconSize(QSize(16, 16));
    }

    connect(sb.Option4, &QRadioButton::toggled, this, &MainForm::BotModeChanged);
    connect(sb.Option5, &QRadioButton::toggled, this, &MainForm::BotModeChanged);
    connect(sb.Text1, &QLineEdit::textChanged, this, &MainForm::Text1_Change);
    connect(sb.HScroll1, &QScrollBar::valueChanged, this, &MainForm::HScroll1_Change);
    connect(sb.Check33, &QCheckBox::toggled, this, &MainForm::Check33_Click);
    connect(sb.Check34, &QCheckBox::toggled, this, &MainForm::Check34_Click);
    connect(sb.ListView1, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        ListCurrentBot = ui.SpawnBots->ui.ListView1->indexOfTopLevelItem(item) + 1;
    });
    new ViewMouse(sb.ListView1, [this] { ListView1_DblClick(); }, [this] { ListView1_RightPress(); });
    Timer2 = new platform::Timer(this, 100, false);
    Timer2->setObjectName(QStringLiteral("Timer2"));
    connect(Timer2, &platform::Timer::timeout, this, &MainForm::Timer2_Timer);
    connect(sb.List2, &QListWidget::itemSelectionChanged, this, [this] { Timer2->setEnabled(true); });
    connect(sb.Command3, &QPushButton::clicked, this, &MainForm::Command3_Click);

    connect(tm.Option6, &QRadioButton::toggled, this, [this](bool on) {
        if (!on)
            return;
        ui.Teams->ui.ListView2->setVisible(true);
        ui.Teams->ui.List3->setVisible(false);
        CheckSel1();
    });
    connect(tm.Option7, &QRadioButton::toggled, this, [this](bool on) {
        if (!on)
            return;
        ui.Teams->ui.ListView2->setVisible(false);
        ui.Teams->ui.List3->setVisible(true);
        CheckSel1();
    });
    connect(tm.ListView2, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        ListCurrentTeam = ui.Teams->ui.ListView2->indexOfTopLevelItem(item) + 1;
    });
    new ViewMouse(tm.ListView2, [this] { ListView2_DblClick(); });
    connect(tm.List3, &QListWidget::itemSelectionChanged, this, &MainForm::List3_Click);
    connect(tm.List3, &QListWidget::itemDoubleClicked, this, &MainForm::List3_DblClick);
    connect(tm.Combo1, &QComboBox::currentTextChanged, this, &MainForm::Combo1_Click);
    connect(tm.Command4, &QPushButton::clicked, this, &MainForm::Command4_Click);

    connect(ctf.Command8, &QPushButton::clicked, this, [this] { MoveSelectedBots(ui.CTFflags->ui.List4, ui.CTFflags->ui.List5); });
    connect(ctf.Command9, &QPushButton::clicked, this, [this] { MoveSelectedBots(ui.CTFflags->ui.List4, ui.CTFflags->ui.List6); });
    connect(ctf.Command6, &QPushButton::clicked, this, [this] { MoveSelectedBots(ui.CTFflags->ui.List5, ui.CTFflags->ui.List4); });
    connect(ctf.Command7, &QPushButton::clicked, this, [this] { MoveSelectedBots(ui.CTFflags->ui.List6, ui.CTFflags->ui.List4); });
    connect(ctf.Command14, &QPushButton::clicked, this, [this] { MoveAllBots(ui.CTFflags->ui.List4, ui.CTFflags->ui.List5); });
    connect(ctf.Command12, &QPushButton::clicked, this, [this] { MoveAllBots(ui.CTFflags->ui.List4, ui.CTFflags->ui.List6); });
    connect(ctf.Command11, &QPushButton::clicked, this, [this] { MoveAllBots(ui.CTFflags->ui.List5, ui.CTFflags->ui.List4); });
    connect(ctf.Command13, &QPushButton::clicked, this, [this] { MoveAllBots(ui.CTFflags->ui.List6, ui.CTFflags->ui.List4); });
    connect(ctf.Command10, &QPushButton::clicked, this, &MainForm::AddCTFBots);

    BotModeChanged();
}

// ---------------------------------------------------------------- loads

void MainForm::LoadBotsAtStart()
{
    ui.SpawnBots->ui.Label36->setText(QStringLiteral("0"));
    if (BotFileErrorFlag == 1)
        return;
    GetNewTeams();
    if (BotFileErrorFlag == 1)
        return;
    ShowBotProgress = 1;
    GetNewBots();
    ShowBotProgress = 0;
}

bool MainForm::ReloadBotsAfterPrefs()
{
    if (BotFileErrorFlag == 1)
        return false;
    GetNewBots();
    if (BotFileErrorFlag == 1)
        return false;
    GetNewTeams();
    return BotFileErrorFlag != 1;
}

// A file that can't be read is to be replaced by the internal copy through
// the Backup Manager, which then ends the program. Until that manager is
// there the load simply stops after its message and the pages stay empty.
void MainForm::RestoreBotsCfg() {}

void MainForm::GetNewBots()
{
    auto& sb = ui.SpawnBots->ui;
    const bool showProgress = ShowBotProgress == 1 && BotFileErrorFlag != 1;
    if (showProgress) {
        Progress->begin();
        const QPointer<ProgressForm> bar(Progress);
        BotProgressHook = [bar](int value, int maximum) {
            if (bar)
                bar->report(value, maximum);
        };
    }
    const std::optional<std::vector<int>> listed = torvik::GetNewBots();
    BotProgressHook = {};
    if (showProgress)
        Progress->hide();

    if (listed) {
        pages::fillBotViews(sb.ListView1, sb.List2, Bots, *listed);
    } else {
        sb.ListView1->clear();
        sb.List2->clear();
    }
    CheckSel();
}

void MainForm::GetNewTeams()
{
    auto& tm = ui.Teams->ui;
    tm.ListView2->setSortingEnabled(false);
    pages::clearReportColumns(tm.ListView2);
    tm.List3->clear();
    tm.Combo1->clear();
    if (!torvik::GetNewTeams())
        return;
    if (TeamsSectionLines == 0) {
        ui.GameType->ui.Option2->setEnabled(false);
        platform::msgBox(QStringLiteral("No teams found."));
        return;
    }
    pages::fillTeamViews(tm.ListView2, tm.List3, Teams);
    for (const TeamRecord& t : Teams)
        tm.Combo1->addItem(t.Name);
    if (tm.Combo1->count() > 0)
        tm.Combo1->setCurrentIndex(0);
}

// ---------------------------------------------------------------- bot page

void MainForm::BotModeChanged()
{
    auto& sb = ui.SpawnBots->ui;
    const bool specific = sb.Option5->isChecked();
    sb.Frame5->setVisible(!specific);
    for (QWidget* w : std::initializer_list<QWidget*>{sb.Frame6, sb.Label35, sb.Label36, sb.Label2, sb.Command3,
                                                      sb.Check33, sb.Check34})
        w->setVisible(specific);
    sb.Frame4->setTitle(specific ? QStringLiteral("Type of Bot - Right click on bot to Examine bot")
                                 : QStringLiteral("Type of Bot"));
}

// The slider follows the amount box; the box keeps what was typed, even
// when that is empty.
void MainForm::Text1_Change()
{
    auto& sb = ui.SpawnBots->ui;
    const QString text = sb.Text1->text();
    int value = 0;
    if (!text.isEmpty() && pages::isNumericText(text)) {
        const double n = pages::numericValue(text);
        if (n >= 0 && n <= 60)
            value = qRound(n);
    }
    tyingAmount_ = true;
    sb.HScroll1->setValue(value);
    tyingAmount_ = false;
}

void MainForm::HScroll1_Change()
{
    if (tyingAmount_)
        return;
    auto& sb = ui.SpawnBots->ui;
    sb.Text1->setText(QString::number(sb.HScroll1->value()));
}

void MainForm::Check33_Click() { ShowBotView(ui.SpawnBots->ui.Check33->isChecked()); }

void MainForm::Check34_Click() { ShowBotView(!ui.SpawnBots->ui.Check34->isChecked()); }

// The two boxes are one choice: the extended report view or the simple list.
// Setting them here calls back in with the same choice, which changes nothing.
void MainForm::ShowBotView(bool extended)
{
    auto& sb = ui.SpawnBots->ui;
    sb.Check33->setChecked(extended);
    sb.Check34->setChecked(!extended);
    sb.ListView1->setVisible(extended);
    if (extended)
        CheckSel();
    sb.List2->setVisible(!extended);
}

void MainForm::CheckSel()
{
    auto& sb = ui.SpawnBots->ui;
    pages::markSelectedRows(sb.ListView1, sb.List2);
    ShowBotCounter();
}

void MainForm::ShowBotCounter()
{
    auto& sb = ui.SpawnBots->ui;
    sb.Label36->setText(QString::number(selectedCount(sb.List2)));
    sb.Label2->setText(QLatin1Char('/') + QString::number(sb.List2->count()));
}

// Double-clicking a row toggles it in the selection; the list's own
// highlight means nothing.
void MainForm::ListView1_DblClick()
{
    auto& sb = ui.SpawnBots->ui;
    if (sb.ListView1->topLevelItemCount() < 1)
        return;
    QTreeWidgetItem* item = sb.ListView1->topLevelItem(ListCurrentBot - 1);
    QListWidgetItem* row = sb.List2->item(ListCurrentBot - 1);
    if (!item || !row)
        return;
    toggleMarkedRow(item, row);
}

void MainForm::ListView1_RightPress()
{
    QTreeWidgetItem* item = ui.SpawnBots->ui.ListView1->topLevelItem(ListCurrentBot - 1);
    if (ListCurrentBot < 1 || !item)
        return;
    ExamineName = item->text(0);
    const QString modelSkin = item->text(1);
    const qsizetype slash = modelSkin.indexOf(QLatin1Char('/'));
    ExamineModel = modelSkin.left(slash);
    ExamineSkin = modelSkin.mid(slash + 1);
    ExamineAccuracy = item->text(2);
    ExamineAggressiveness = item->text(3);
    ExamineCombatSkills = item->text(4);
    ExamineFavoriteWeapon = item->text(5);
    ExamineQuadFreak = item->text(6);
    ExamineCamper = item->text(7);
    ExaminePing = item->text(8);
    if (ShowExamineForm)
        ShowExamineForm();
}

void MainForm::Timer2_Timer()
{
    Timer2->setEnabled(false);
    ShowBotCounter();
}

void MainForm::Command3_Click()
{
    auto& sb = ui.SpawnBots->ui;
    Bots.clear();
    BotCount = 0;
    sb.List2->clear();
    sb.Label36->setText(QStringLiteral("0"));
    ShowBotProgress = 1;
    GetNewBots();
    ShowBotProgress = 0;
}

// ---------------------------------------------------------------- team page

void MainForm::CheckSel1()
{
    auto& tm = ui.Teams->ui;
    pages::markSelectedRows(tm.ListView2, tm.List3);
}

// The player's own team can never be an opponent.
void MainForm::ListView2_DblClick()
{
    auto& tm = ui.Teams->ui;
    if (ListCurrentTeam < 1)
        return;
    QTreeWidgetItem* item = tm.ListView2->topLevelItem(ListCurrentTeam - 1);
    QListWidgetItem* row = tm.List3->item(ListCurrentTeam - 1);
    if (!item || !row || item->text(0) == tm.Combo1->currentText())
        return;
    toggleMarkedRow(item, row);
}

void MainForm::List3_Click()
{
    auto& tm = ui.Teams->ui;
    QListWidgetItem* row = tm.List3->currentItem();
    if (row && row->isSelected()) {
        QTreeWidgetItem* item = tm.ListView2->topLevelItem(tm.List3->row(row));
        if ((item && item->text(0) == tm.Combo1->currentText()) || row->text() == tm.Combo1->currentText())
            row->setSelected(false);
    }
    Combo1_Click();
}

void MainForm::List3_DblClick()
{
    auto& tm = ui.Teams->ui;
    QListWidgetItem* row = tm.List3->currentItem();
    if (!row)
        return;
    if (row->text() == tm.Combo1->currentText()) {
        row->setSelected(false);
        return;
    }
    if (QTreeWidgetItem* item = tm.ListView2->topLevelItem(tm.List3->row(row)))
        setIconKey(item, row->isSelected() ? kCheckKey : QString());
}

void MainForm::Combo1_Click()
{
    auto& tm = ui.Teams->ui;
    const QString own = tm.Combo1->currentText();
    for (int i = 0; i < tm.List3->count(); ++i) {
        QListWidgetItem* row = tm.List3->item(i);
        if (row->text() != own)
            continue;
        row->setSelected(false);
        if (QTreeWidgetItem* item = tm.ListView2->topLevelItem(i))
            setIconKey(item, QString());
    }
}

void MainForm::Command4_Click()
{
    Teams.clear();
    TeamCount = 0;
    GetNewTeams();
}

// ---------------------------------------------------------------- CTF lists

void MainForm::AddCTFBots()
{
    if (DataFileMode == 1)
        return;
    const QListWidget* chosen = ui.SpawnBots->ui.List2;
    if (chosen->count() == 0)
        return;
    auto& ctf = ui.CTFflags->ui;
    ctf.List4->clear();
    ctf.List5->clear();
    ctf.List6->clear();
    QStringList names;
    for (int i = 0; i < chosen->count(); ++i)
        if (chosen->item(i)->isSelected())
            names << chosen->item(i)->text();
    ctf.List4->addItems(names);
}

void MainForm::MoveSelectedBots(QListWidget* from, QListWidget* to)
{
    if (from->currentRow() == -1)
        return;
    QStringList moving;
    for (int i = 0; i < from->count(); ++i)
        if (from->item(i)->isSelected())
            moving << from->item(i)->text();
    to->addItems(moving);
    for (int i = from->count() - 1; i >= 0; --i)
        if (from->item(i)->isSelected())
            delete from->takeItem(i);
}

void MainForm::MoveAllBots(QListWidget* from, QListWidget* to)
{
    if (from->count() == 0)
        return;
    QStringList all;
    for (int i = 0; i < from->count(); ++i)
        all << from->item(i)->text();
    to->addItems(all);
    from->clear();
}

} // namespace torvik
