// The scenario runner, played against a throwaway form built here: the
// actions must reach the controls as a user's would, and the checks must pass
// when right and fail, on the right line, when wrong.
#include "Doubles.h"
#include "Scenario.h"
#include "ScriptText.h"

#include "media/Graphics.h"
#include "platform/Controls.h"
#include "platform/Dialogs.h"
#include "platform/Process.h"
#include "platform/SingleInstance.h"
#include "platform/Timer.h"
#include "wizard/Globals.h"
#include "wizard/Program.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <QMouseEvent>

// Readable texts in gtest's messages.
void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

// Writes down the mouse events it gets, to see what a user's click is made of.
class MouseProbe : public QWidget {
public:
    MouseProbe(QStringList& log, QWidget* parent) : QWidget(parent), log_(log) { setMinimumSize(40, 20); }

protected:
    bool event(QEvent* e) override
    {
        const char* name = nullptr;
        switch (e->type()) {
        case QEvent::MouseButtonPress: name = "press"; break;
        case QEvent::MouseButtonRelease: name = "release"; break;
        case QEvent::MouseButtonDblClick: name = "double"; break;
        case QEvent::ContextMenu: name = "menu"; break;
        default: break;
        }
        if (name) {
            auto* me = dynamic_cast<QMouseEvent*>(e);
            const bool right = me ? me->button() == Qt::RightButton : false;
            const bool inside = me ? rect().contains(me->position().toPoint()) : true;
            log_ << QStringLiteral("Probe %1%2%3").arg(QLatin1String(name), right ? QStringLiteral(" right") : QString(),
                                                       inside ? QString() : QStringLiteral(" outside"));
            e->accept();
            return true;
        }
        return QWidget::event(e);
    }

private:
    QStringList& log_;
};

using harness::ScenarioOptions;
using harness::ScenarioResult;

// What the form's handlers saw; outlives the form, which the run deletes.
struct Seen {
    QStringList events;
    QString programFolder;
    QString lockPath;
    bool started = false;
    bool lockTaken = false;
};

QPushButton* addButton(QWidget* form, QLayout* layout, const char* name, const QString& text)
{
    auto* b = new QPushButton(text, form);
    b->setObjectName(QLatin1String(name));
    layout->addWidget(b);
    return b;
}

void buildFake(Seen& seen)
{
    seen.started = true;
    seen.programFolder = torvik::ProgramFolder;
    seen.lockPath = torvik::SingleInstanceLockPath;
    auto* form = new QWidget;
    form->setObjectName(QStringLiteral("Fake"));
    form->setWindowTitle(QStringLiteral("Fake form"));
    auto* layout = new QVBoxLayout(form);
    QStringList& ev = seen.events;

    auto* label = new QLabel(QStringLiteral("idle"), form);
    label->setObjectName(QStringLiteral("Label"));
    layout->addWidget(label);

    QPushButton* button = addButton(form, layout, "Button", QStringLiteral("&Press"));
    button->setToolTip(QStringLiteral("Press me"));
    QObject::connect(button, &QPushButton::clicked, form, [&ev, label] {
        ev << QStringLiteral("Button clicked");
        label->setText(QStringLiteral("pressed"));
    });
    QPushButton* disabled = addButton(form, layout, "Disabled", QStringLiteral("Off"));
    disabled->setEnabled(false);
    QObject::connect(disabled, &QPushButton::clicked, form, [&ev] { ev << QStringLiteral("Disabled clicked"); });

    auto* check = new QCheckBox(QStringLiteral("Check"), form);
    check->setObjectName(QStringLiteral("Check"));
    layout->addWidget(check);
    QObject::connect(check, &QCheckBox::toggled, form,
                     [&ev](bool on) { ev << QStringLiteral("Check toggled %1").arg(on ? 1 : 0); });
    auto* radio1 = new QRadioButton(QStringLiteral("One"), form);
    radio1->setObjectName(QStringLiteral("Radio1"));
    radio1->setChecked(true);
    auto* radio2 = new QRadioButton(QStringLiteral("Two"), form);
    radio2->setObjectName(QStringLiteral("Radio2"));
    layout->addWidget(radio1);
    layout->addWidget(radio2);

    auto* edit = new QLineEdit(form);
    edit->setObjectName(QStringLiteral("Edit"));
    layout->addWidget(edit);
    QObject::connect(edit, &QLineEdit::textEdited, form, [&ev](const QString& t) { ev << QStringLiteral("Edit edited ") + t; });
    QObject::connect(edit, &QLineEdit::returnPressed, form, [&ev] { ev << QStringLiteral("Edit return"); });

    auto* icon = new platform::ClickLabel(QStringLiteral("icon"), form);
    icon->setObjectName(QStringLiteral("Icon"));
    layout->addWidget(icon);
    QObject::connect(icon, &platform::ClickLabel::clicked, form, [&ev] { ev << QStringLiteral("Icon clicked"); });
    QObject::connect(icon, &platform::ClickLabel::rightClicked, form, [&ev] { ev << QStringLiteral("Icon right"); });
    QObject::connect(icon, &platform::ClickLabel::doubleClicked, form, [&ev] { ev << QStringLiteral("Icon double"); });

    auto* probe = new MouseProbe(ev, form);
    probe->setObjectName(QStringLiteral("Probe"));
    layout->addWidget(probe);

    auto* list = new QListWidget(form);
    list->setObjectName(QStringLiteral("List"));
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->addItems({QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")});
    list->setContextMenuPolicy(Qt::CustomContextMenu);
    layout->addWidget(list);
    QObject::connect(list, &QListWidget::itemClicked, form,
                     [&ev](QListWidgetItem* i) { ev << QStringLiteral("List clicked ") + i->text(); });
    QObject::connect(list, &QListWidget::itemDoubleClicked, form,
                     [&ev](QListWidgetItem* i) { ev << QStringLiteral("List double ") + i->text(); });
    QObject::connect(list, &QWidget::customContextMenuRequested, form, [&ev, list](const QPoint& at) {
        QListWidgetItem* i = list->itemAt(at);
        ev << QStringLiteral("List menu on ") + (i ? i->text() : QStringLiteral("nothing"));
    });

    auto* tree = new QTreeWidget(form);
    tree->setObjectName(QStringLiteral("Tree"));
    tree->setColumnCount(2);
    auto* maps = new QTreeWidgetItem(tree, {QStringLiteral("Maps")});
    new QTreeWidgetItem(maps, {QStringLiteral("q2dm1"), QStringLiteral("The Edge")});
    new QTreeWidgetItem(maps, {QStringLiteral("q2dm2"), QStringLiteral("Tokay's Towers")});
    new QTreeWidgetItem(tree, {QStringLiteral("Other")});
    layout->addWidget(tree);
    QObject::connect(tree, &QTreeWidget::itemDoubleClicked, form,
                     [&ev](QTreeWidgetItem* i) { ev << QStringLiteral("Tree double ") + i->text(0); });

    auto* combo = new QComboBox(form);
    combo->setObjectName(QStringLiteral("Combo"));
    combo->addItems({QStringLiteral("Red"), QStringLiteral("Green"), QStringLiteral("Blue")});
    layout->addWidget(combo);
    QObject::connect(combo, &QComboBox::activated, form,
                     [&ev, combo](int row) { ev << QStringLiteral("Combo activated ") + combo->itemText(row); });

    auto* slider = new QSlider(Qt::Horizontal, form);
    slider->setObjectName(QStringLiteral("Slider"));
    slider->setRange(0, 10);
    layout->addWidget(slider);
    QObject::connect(slider, &QSlider::valueChanged, form, [&ev](int v) { ev << QStringLiteral("Slider %1").arg(v); });

    auto* tabs = new QTabWidget(form);
    tabs->setObjectName(QStringLiteral("Tabs"));
    tabs->addTab(new QWidget, QStringLiteral("&General"));
    tabs->addTab(new QWidget, QStringLiteral("Teams"));
    tabs->addTab(new QWidget, QStringLiteral("Locked"));
    tabs->setTabEnabled(2, false);
    layout->addWidget(tabs);

    QPushButton* ask = addButton(form, layout, "Ask", QStringLiteral("Ask..."));
    QObject::connect(ask, &QPushButton::clicked, form, [&ev, form] {
        QDialog dialog(form);
        dialog.setObjectName(QStringLiteral("AskDialog"));
        dialog.setWindowTitle(QStringLiteral("Your name"));
        auto* l = new QVBoxLayout(&dialog);
        auto* name = new QLineEdit(&dialog);
        name->setObjectName(QStringLiteral("Name"));
        l->addWidget(name);
        auto* ok = new QPushButton(QStringLiteral("OK"), &dialog);
        ok->setObjectName(QStringLiteral("Ok"));
        l->addWidget(ok);
        QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
        ev << QStringLiteral("Ask opens");
        const int r = dialog.exec();
        ev << QStringLiteral("Ask returned %1 %2").arg(r).arg(name->text());
    });

    QPushButton* menuButton = addButton(form, layout, "MenuButton", QStringLiteral("Menu"));
    QObject::connect(menuButton, &QPushButton::clicked, form, [&ev, form] {
        QMenu menu(form);
        menu.setObjectName(QStringLiteral("FakeMenu"));
        menu.addAction(QStringLiteral("&First"));
        menu.addSeparator();
        menu.addAction(QStringLiteral("Second"))->setEnabled(false);
        QObject::connect(menu.addAction(QStringLiteral("Third")), &QAction::triggered, form,
                         [&ev] { ev << QStringLiteral("Third triggered"); });
        QAction* chosen = menu.exec(form->mapToGlobal(QPoint(10, 10)));
        ev << QStringLiteral("Menu returned ") + (chosen ? chosen->text() : QStringLiteral("nothing"));
    });

    auto* timer = new platform::Timer(form, 500, false);
    timer->setObjectName(QStringLiteral("Timer"));
    QObject::connect(timer, &platform::Timer::timeout, form, [&ev, timer] {
        timer->setEnabled(false);
        ev << QStringLiteral("tick");
    });
    QPushButton* arm = addButton(form, layout, "Arm", QStringLiteral("Arm"));
    QObject::connect(arm, &QPushButton::clicked, form, [timer] { timer->setEnabled(true); });

    QPushButton* quit = addButton(form, layout, "Quit", QStringLiteral("Quit"));
    QObject::connect(quit, &QPushButton::clicked, form, [&ev] {
        const bool yes = platform::ask(QStringLiteral("Are you sure?"), QStringLiteral("Quit Fake"));
        ev << QStringLiteral("Quit answered ") + (yes ? QStringLiteral("yes") : QStringLiteral("no"));
    });
    QPushButton* nameButton = addButton(form, layout, "NameButton", QStringLiteral("Name"));
    QObject::connect(nameButton, &QPushButton::clicked, form, [&ev] {
        ev << QStringLiteral("Name typed ") + platform::inputBox(QStringLiteral("Your name?"), QStringLiteral("Name"));
    });
    QPushButton* beep = addButton(form, layout, "Beep", QStringLiteral("Beep"));
    QObject::connect(beep, &QPushButton::clicked, form, [] { platform::beep(); });
    QPushButton* launch = addButton(form, layout, "Launch", QStringLiteral("Launch"));
    QObject::connect(launch, &QPushButton::clicked, form, [&ev] {
        const bool ok = platform::launcher().start(
            {QStringLiteral("/games/q 2/quake2"), {QStringLiteral("+exec"), QStringLiteral("asdf.cfg")},
             QStringLiteral("/games/q 2")});
        ev << QStringLiteral("Launch ") + (ok ? QStringLiteral("ok") : QStringLiteral("failed"));
    });
    QPushButton* end = addButton(form, layout, "End", QStringLiteral("End"));
    QObject::connect(end, &QPushButton::clicked, form, [&ev] {
        platform::endProcess(0);
        ev << QStringLiteral("End returned");
    });
    QPushButton* busy = addButton(form, layout, "Busy", QStringLiteral("Busy"));
    QObject::connect(busy, &QPushButton::clicked, form, [&ev, label] {
        label->setText(QStringLiteral("busy"));
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        label->setText(QStringLiteral("done"));
        ev << QStringLiteral("Busy done");
    });
    QPushButton* later = addButton(form, layout, "Later", QStringLiteral("Later"));
    QObject::connect(later, &QPushButton::clicked, form, [label] {
        QTimer::singleShot(0, label, [label] { label->setText(QStringLiteral("later")); });
    });
    QPushButton* desktop = addButton(form, layout, "Desktop", QStringLiteral("Desktop"));
    QObject::connect(desktop, &QPushButton::clicked, form, [&ev, form] {
        QMessageBox::information(form, QStringLiteral("Desktop"), QStringLiteral("A real box"));
        ev << QStringLiteral("Desktop returned");
    });
    QPushButton* save = addButton(form, layout, "Save", QStringLiteral("Save"));
    QObject::connect(save, &QPushButton::clicked, form, [&ev] {
        QFile f(torvik::ProgramFolder + QStringLiteral("/Saved/answers.tkd"));
        ev << QStringLiteral("Save ") + (f.open(QIODevice::WriteOnly) ? QStringLiteral("ok") : QStringLiteral("refused"));
    });
    QPushButton* read = addButton(form, layout, "Read", QStringLiteral("Read"));
    QObject::connect(read, &QPushButton::clicked, form, [&ev] {
        QFile f(torvik::ProgramFolder + QStringLiteral("/quake2.loc"));
        ev << QStringLiteral("Read ") + (f.open(QIODevice::ReadOnly) ? QStringLiteral("ok") : QStringLiteral("refused"));
    });
    QPushButton* lock = addButton(form, layout, "Lock", QStringLiteral("Lock"));
    QObject::connect(lock, &QPushButton::clicked, form, [&seen] {
        seen.lockTaken = platform::acquireSingleInstance(torvik::SingleInstanceLockPath);
    });

    // Two panels at one place, the later one above, as the wizard's pages lie.
    auto* stack = new QWidget(form);
    stack->setObjectName(QStringLiteral("Stack"));
    auto* grid = new QGridLayout(stack);
    for (const char* name : {"Under", "Over"}) {
        auto* panel = new QLabel(QLatin1String(name), stack);
        panel->setObjectName(QLatin1String(name));
        panel->setAutoFillBackground(true);
        panel->setMinimumSize(60, 30);
        grid->addWidget(panel, 0, 0);
    }
    layout->addWidget(stack);
    QPushButton* raise = addButton(form, layout, "Raise", QStringLiteral("Raise"));
    QObject::connect(raise, &QPushButton::clicked, form, [stack] { stack->findChild<QWidget*>(QStringLiteral("Under"))->raise(); });
    auto* picture = new QLabel(form);
    picture->setObjectName(QStringLiteral("Picture"));
    layout->addWidget(picture);
    QPushButton* show = addButton(form, layout, "ShowPicture", QStringLiteral("Show"));
    QObject::connect(show, &QPushButton::clicked, form,
                     [picture] { picture->setProperty(media::kPictureKeyProperty, QStringLiteral("showdmflags")); });

    form->show();
}

class ScenarioTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { harness::ensureApplication(); }

    ScenarioResult play(const char* script)
    {
        ScenarioOptions options;
        options.programTemplate.clear();
        options.timeoutMs = 20000;
        options.start = [this] { buildFake(seen); };
        return harness::runScenario(QByteArray(script), QStringLiteral("fake.scn"), options);
    }

    static std::vector<int> failedLines(const ScenarioResult& r)
    {
        std::vector<int> lines;
        for (const auto& f : r.failures)
            lines.push_back(f.line);
        return lines;
    }

    static QString report(const ScenarioResult& r) { return r.output.join(QLatin1Char('\n')); }

    Seen seen;
};

class ScenarioActions : public ScenarioTest {};
class ScenarioChecks : public ScenarioTest {};
class ScenarioBoxes : public ScenarioTest {};
class ScenarioFiles : public ScenarioTest {};
class ScenarioProgram : public ScenarioTest {};
class ScenarioScript : public ScenarioTest {};

TEST_F(ScenarioActions, ClicksRunButtonHandlersButADisabledButtonIgnoresThem)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Button\n"
        "click Fake.Disabled\n"
        "check Fake.Label text pressed\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, QStringList{QStringLiteral("Button clicked")});
}

TEST_F(ScenarioActions, ClicksOnOtherControlsAreTheMouseEventsOfADesktop)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Probe\n"
        "right-click Fake.Probe\n"
        "double-click Fake.Probe\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Probe press"), QStringLiteral("Probe release"),
                                        QStringLiteral("Probe press right"), QStringLiteral("Probe menu"),
                                        QStringLiteral("Probe release right"), QStringLiteral("Probe press"),
                                        QStringLiteral("Probe release"), QStringLiteral("Probe double"),
                                        QStringLiteral("Probe release")}));
}

TEST_F(ScenarioActions, ClickableLabelsReactToTheClicks)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Icon\n"
        "right-click Fake.Icon\n"
        "double-click Fake.Icon\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    ASSERT_GE(seen.events.size(), 4);
    EXPECT_EQ(seen.events.mid(0, 4), (QStringList{QStringLiteral("Icon clicked"), QStringLiteral("Icon right"),
                                                  QStringLiteral("Icon clicked"), QStringLiteral("Icon double")}));
}

TEST_F(ScenarioActions, AHiddenControlCantBeClickedButAHiddenButtonCan)
{
    const ScenarioResult r = play(
        "start\n"
        "close Fake\n"
        "click Fake.Button\n"
        "click Fake.Probe\n");
    EXPECT_EQ(failedLines(r), std::vector<int>{4});
    EXPECT_EQ(seen.events, QStringList{QStringLiteral("Button clicked")});
}

TEST_F(ScenarioActions, ValuesAreSetAndTextIsTypedKeyByKey)
{
    const ScenarioResult r = play(
        "start\n"
        "set Fake.Check 1\n"
        "set Fake.Radio2 true\n"
        "set Fake.Slider 7\n"
        "type Fake.Edit ab\n"
        "key Fake.Edit Enter\n"
        "check Fake.Check value 1\n"
        "check Fake.Radio1 value false\n"
        "check Fake.Radio2 value true\n"
        "check Fake.Slider value 7\n"
        "check Fake.Edit text ab\n"
        "set Fake.Edit \"whole text\"\n"
        "check Fake.Edit value \"whole text\"\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Check toggled 1"), QStringLiteral("Slider 7"),
                                        QStringLiteral("Edit edited a"), QStringLiteral("Edit edited ab"),
                                        QStringLiteral("Edit return")}));
}

TEST_F(ScenarioActions, AValueOutsideWhatTheControlTakesStopsTheScenario)
{
    const ScenarioResult r = play(
        "start\n"
        "set Fake.Slider 11\n"
        "click Fake.Button\n");
    EXPECT_FALSE(r.passed);
    EXPECT_EQ(failedLines(r), std::vector<int>{2});
    EXPECT_TRUE(seen.events.isEmpty()) << seen.events.join(QLatin1Char('|')).toStdString();
}

TEST_F(ScenarioActions, ListRowsAreSelectedAndDeselectedWithRealClicks)
{
    const ScenarioResult r = play(
        "start\n"
        "select Fake.List Beta Gamma\n"
        "check Fake.List selected Beta Gamma\n"
        "deselect Fake.List Beta\n"
        "check Fake.List selected Gamma\n"
        "check Fake.List rows Alpha Beta Gamma\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("List clicked Beta"), QStringLiteral("List clicked Gamma"),
                                        QStringLiteral("List clicked Beta")}));
}

TEST_F(ScenarioActions, ItemsOfListsAndTreesTakeDoubleAndRightClicks)
{
    const ScenarioResult r = play(
        "start\n"
        "double-click Fake.Tree q2dm2\n"
        "double-click Fake.List Alpha\n"
        "right-click Fake.List Gamma\n"
        "check Fake.Tree rows Maps q2dm1 q2dm2 Other\n"
        "check Fake.Tree cells q2dm2 q2dm2 \"Tokay's Towers\"\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_TRUE(seen.events.contains(QStringLiteral("Tree double q2dm2")));
    EXPECT_TRUE(seen.events.contains(QStringLiteral("List double Alpha")));
    EXPECT_TRUE(seen.events.contains(QStringLiteral("List menu on Gamma")));
    EXPECT_FALSE(seen.events.contains(QStringLiteral("List double Gamma")));
}

TEST_F(ScenarioActions, ComboRowsAreChosenLikeAUserChoosesThem)
{
    const ScenarioResult r = play(
        "start\n"
        "select Fake.Combo Green\n"
        "set Fake.Combo Blue\n"
        "check Fake.Combo text Blue\n"
        "check Fake.Combo rows Red Green Blue\n"
        "select Fake.Combo Purple\n");
    EXPECT_EQ(failedLines(r), std::vector<int>{6});
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Combo activated Green"), QStringLiteral("Combo activated Blue")}));
}

TEST_F(ScenarioActions, TabsAreClickedUnlessDisabled)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Tabs Teams\n"
        "check Fake.Tabs value 1\n"
        "check Fake.Tabs item-enabled Locked no\n"
        "check Fake.Tabs rows &General Teams Locked\n"
        "click Fake.Tabs Locked\n"
        "check Fake.Tabs selected Teams\n"
        "click Fake.Tabs General\n"
        "check Fake.Tabs value 0\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
}

TEST_F(ScenarioActions, AModalDialogIsDrivenWhileItsLoopRunsAndThenCloses)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Ask\n"
        "check AskDialog visible yes\n"
        "check AskDialog caption \"Your name\"\n"
        "type AskDialog.Name Jo\n"
        "click AskDialog.Ok\n"
        "check AskDialog visible no\n"
        "click Fake.Button\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Ask opens"), QStringLiteral("Ask returned 1 Jo"),
                                        QStringLiteral("Button clicked")}));
}

TEST_F(ScenarioActions, AModalDialogLeftOpenIsClosedAtTheEnd)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Ask\n"
        "type AskDialog.Name Al\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Ask opens"), QStringLiteral("Ask returned 0 Al")}));
}

TEST_F(ScenarioActions, PopUpMenuItemsArePickedByTheirText)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.MenuButton\n"
        "check popup visible yes\n"
        "check popup rows &First Second Third\n"
        "check popup item-enabled Second no\n"
        "check popup item-enabled First yes\n"
        "click popup Third\n"
        "check popup visible no\n"
        "click Fake.MenuButton\n"
        "click popup Second\n"
        "check popup visible yes\n"
        "click popup First\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Third triggered"), QStringLiteral("Menu returned Third"),
                                        QStringLiteral("Menu returned &First")}));
}

TEST_F(ScenarioActions, APopUpMenuLeftOpenIsClosedAtTheEnd)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.MenuButton\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, QStringList{QStringLiteral("Menu returned nothing")});
}

TEST_F(ScenarioActions, TimersFireOnlyWhenTheClockIsAdvanced)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Arm\n"
        "check Fake.Timer enabled yes\n"
        "advance 499\n"
        "check Fake.Timer enabled yes\n"
        "advance 1\n"
        "check Fake.Timer enabled no\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, QStringList{QStringLiteral("tick")});
}

TEST_F(ScenarioActions, TheNextLineWaitsForAHandlerThatProcessesEvents)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Busy\n"
        "check Fake.Label text done\n"
        "click Fake.Later\n"
        "check Fake.Label text later\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
}

TEST_F(ScenarioChecks, PassWhenRightAndFailOnTheirLineWhenWrong)
{
    const ScenarioResult r = play(
        "start\n"                                   // 1
        "check Fake caption \"Fake form\"\n"        // 2
        "check Fake caption \"Other\"\n"            // 3 wrong
        "check Fake.Button caption &Press\n"        // 4
        "check Fake.Button tooltip \"Press me\"\n"  // 5
        "check Fake.Button tooltip \"Press\"\n"     // 6 wrong
        "check Fake.Disabled enabled no\n"          // 7
        "check Fake.Disabled enabled yes\n"         // 8 wrong
        "check Fake.Check value 1\n"                // 9 wrong
        "check Fake.List rows Alpha Gamma\n"        // 10 wrong
        "check Fake.List selected\n"                // 11
        "check Fake.Missing exists no\n"            // 12
        "check Fake.Missing text x\n"               // 13 wrong: no such control
        "check Gone visible no\n"                   // 14
        "check Fake visible no\n"                   // 15 wrong
        "check global GameTypeCode DM\n"            // 16
        "check global GameTypeCode CTF\n");         // 17 wrong
    EXPECT_FALSE(r.passed);
    EXPECT_EQ(failedLines(r), (std::vector<int>{3, 6, 8, 9, 10, 13, 15, 17}));
    ASSERT_EQ(r.failures.size(), 8u);
    EXPECT_EQ(r.failures[0].message, QStringLiteral("expected Fake caption \"Other\" / found \"Fake form\""));
    EXPECT_EQ(r.failures[4].message,
              QStringLiteral("expected Fake.List rows \"Alpha\", \"Gamma\" / found \"Alpha\", \"Beta\", \"Gamma\""));
    EXPECT_TRUE(r.output.contains(QStringLiteral("fake.scn:3: expected Fake caption \"Other\" / found \"Fake form\"")));
    EXPECT_EQ(r.output.last(), QStringLiteral("fake.scn: scenario failed"));
}

TEST_F(ScenarioChecks, OnTopTellsWhichOfStackedPanelsTheUserSees)
{
    const ScenarioResult r = play(
        "start\n"                              // 1
        "check Fake.Over on-top yes\n"         // 2
        "check Fake.Under on-top no\n"         // 3
        "check Fake.Under visible yes\n"       // 4
        "check Fake.Under on-top yes\n"        // 5 wrong
        "click Fake.Raise\n"                   // 6
        "check Fake.Under on-top yes\n"        // 7
        "check Fake.Over on-top yes\n"         // 8 wrong
        "check Fake.Timer on-top yes\n");      // 9 wrong: no widget
    EXPECT_EQ(failedLines(r), (std::vector<int>{5, 8, 9}));
    ASSERT_EQ(r.failures.size(), 3u);
    EXPECT_EQ(r.failures[0].message, QStringLiteral("expected Fake.Under on-top yes / found no"));
}

TEST_F(ScenarioChecks, PictureTellsTheKeyAnImageShows)
{
    const ScenarioResult r = play(
        "start\n"                                  // 1
        "check Fake.Picture picture \"\"\n"        // 2
        "click Fake.ShowPicture\n"                 // 3
        "check Fake.Picture picture showdmflags\n" // 4
        "check Fake.Picture picture showwelcome\n" // 5 wrong
        "check Fake.Button picture showwelcome\n");// 6 wrong: not an image
    EXPECT_EQ(failedLines(r), (std::vector<int>{5, 6}));
    ASSERT_EQ(r.failures.size(), 2u);
    EXPECT_EQ(r.failures[0].message, QStringLiteral("expected Fake.Picture picture \"showwelcome\" / found \"showdmflags\""));
}

TEST_F(ScenarioChecks, AnActionOnAMissingControlStopsTheScenario)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Nothing\n"
        "click Fake.Button\n"
        "check Fake.Label text never\n");
    EXPECT_EQ(failedLines(r), std::vector<int>{2});
    EXPECT_TRUE(r.failures[0].message.contains(QLatin1String("has no control Nothing")));
    EXPECT_TRUE(seen.events.isEmpty());
}

TEST_F(ScenarioBoxes, AnUnansweredBoxFailsNamingItsTitleAndText)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Quit\n"
        "click Fake.Button\n");
    EXPECT_EQ(failedLines(r), std::vector<int>{2});
    EXPECT_TRUE(r.failures[0].message.contains(QLatin1String("\"Quit Fake\""))) << r.failures[0].message.toStdString();
    EXPECT_TRUE(r.failures[0].message.contains(QLatin1String("\"Are you sure?\"")));
    // Answered with the choice that changes nothing, and the run goes on.
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Quit answered no"), QStringLiteral("Button clicked")}));
}

TEST_F(ScenarioBoxes, AQueuedAnswerIsGivenToTheBox)
{
    const ScenarioResult r = play(
        "start\n"
        "answer Yes \"Quit Fake\" \"Are you sure?\"\n"
        "click Fake.Quit\n"
        "input Name \"Your name?\" \"Gorvan\"\n"
        "click Fake.NameButton\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Quit answered yes"), QStringLiteral("Name typed Gorvan")}));
}

TEST_F(ScenarioBoxes, AnAnswerNotUsedByTheNextActionFails)
{
    const ScenarioResult r = play(
        "start\n"
        "answer Yes \"Quit Fake\" \"Are you sure?\"\n"
        "check Fake.Label text idle\n"
        "click Fake.Button\n"
        "click Fake.Quit\n");
    EXPECT_EQ(failedLines(r), (std::vector<int>{4, 5}));
    EXPECT_TRUE(r.failures[0].message.contains(QLatin1String("queued at line 2"))) << r.failures[0].message.toStdString();
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Button clicked"), QStringLiteral("Quit answered no")}));
}

TEST_F(ScenarioBoxes, AnAnswerLeftAtTheEndFails)
{
    const ScenarioResult r = play(
        "start\n"
        "answer Ok Torvik Hello\n");
    EXPECT_EQ(failedLines(r), std::vector<int>{2});
}

TEST_F(ScenarioBoxes, ABoxWithAnotherTextFailsAndAnAnswerItDoesNotOfferIsRefused)
{
    const ScenarioResult r = play(
        "start\n"
        "answer Yes \"Quit Fake\" \"Are you really sure?\"\n"
        "click Fake.Quit\n"
        "answer Ok \"Quit Fake\" \"Are you sure?\"\n"
        "click Fake.Quit\n");
    EXPECT_EQ(failedLines(r), (std::vector<int>{3, 5}));
    EXPECT_TRUE(r.failures[0].message.contains(QLatin1String("Are you really sure?")));
    EXPECT_TRUE(r.failures[1].message.contains(QLatin1String("isn't offered")));
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Quit answered yes"), QStringLiteral("Quit answered no")}));
}

TEST_F(ScenarioBoxes, BeepsAreCountedSinceTheLastCheck)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Beep\n"
        "click Fake.Beep\n"
        "check beeps 2\n"
        "click Fake.Beep\n"
        "check beeps 2\n"
        "check beeps 0\n");
    EXPECT_EQ(failedLines(r), std::vector<int>{6});
}

TEST_F(ScenarioBoxes, ADesktopBoxIsReportedAndClosed)
{
    const ScenarioResult r = play(
        "start\n"
        "click Fake.Desktop\n"
        "click Fake.Button\n");
    EXPECT_EQ(failedLines(r), std::vector<int>{2});
    EXPECT_TRUE(r.failures[0].message.contains(QLatin1String("A real box")));
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Desktop returned"), QStringLiteral("Button clicked")}));
}

TEST_F(ScenarioFiles, ContentIsComparedByteForByte)
{
    const ScenarioResult r = play(
        "write \"$PROGRAM/a b.txt\" \"one\\r\\ntwo\\xE9\\r\\n\"\n"   // 1
        "check file \"$PROGRAM/a b.txt\" \"one\\r\\ntwo\\xE9\\r\\n\"\n" // 2
        "check file \"$PROGRAM/a b.txt\" \"one\\ntwo\\xE9\\n\"\n"       // 3 wrong
        "check file \"$PROGRAM/missing.txt\" \"\"\n"                    // 4 wrong
        "check exists \"$PROGRAM/a b.txt\" yes\n"                      // 5
        "remove \"$PROGRAM/a b.txt\"\n"                                // 6
        "check exists \"$PROGRAM/a b.txt\" no\n"                       // 7
        "mkdir \"$PROGRAM/Saved/x y\"\n"                               // 8
        "write \"$PROGRAM/Saved/B.tkd\" x\n"                           // 9
        "check folder \"$PROGRAM/Saved\" B.tkd \"x y\"\n");            // 10
    EXPECT_EQ(failedLines(r), (std::vector<int>{3, 4}));
    ASSERT_EQ(r.failures.size(), 2u);
    EXPECT_TRUE(r.failures[0].message.contains(QLatin1String("\"one\\ntwo\\xE9\\n\" / found \"one\\r\\ntwo\\xE9\\r\\n\"")))
        << r.failures[0].message.toStdString();
    EXPECT_TRUE(r.failures[0].message.contains(QLatin1String("byte 3, line 1")));
}

TEST_F(ScenarioFiles, SameComparesTwoFiles)
{
    const ScenarioResult r = play(
        "write \"$PROGRAM/a\" \"one\\r\\n\"\n"       // 1
        "write \"$PROGRAM/b\" \"one\\r\\n\"\n"       // 2
        "write \"$PROGRAM/c\" \"one\\n\"\n"            // 3
        "check same \"$PROGRAM/a\" \"$PROGRAM/b\"\n"     // 4
        "check same \"$PROGRAM/a\" \"$PROGRAM/c\"\n"     // 5 wrong
        "check same \"$PROGRAM/a\" \"$PROGRAM/none\"\n"  // 6 wrong
        "check same \"$PROGRAM/a\"\n");                  // 7 mistake
    EXPECT_EQ(failedLines(r), (std::vector<int>{7}));
    const ScenarioResult r2 = play(
        "write \"$PROGRAM/a\" \"one\\r\\n\"\n"
        "write \"$PROGRAM/b\" \"one\\r\\n\"\n"
        "write \"$PROGRAM/c\" \"one\\n\"\n"
        "check same \"$PROGRAM/a\" \"$PROGRAM/b\"\n"
        "check same \"$PROGRAM/a\" \"$PROGRAM/c\"\n"
        "check same \"$PROGRAM/a\" \"$PROGRAM/none\"\n");
    EXPECT_EQ(failedLines(r2), (std::vector<int>{5, 6}));
    ASSERT_EQ(r2.failures.size(), 2u);
    EXPECT_TRUE(r2.failures[0].message.contains(QLatin1String("5 bytes against 4"))) << r2.failures[0].message.toStdString();
}

TEST_F(ScenarioFiles, VariablesExpandToFoldersWithBlanks)
{
    const ScenarioResult r = play(
        "write \"$PROGRAM/note.txt\" \"$GAME|$MOD\"\n"
        "start\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    ASSERT_TRUE(seen.started);
    EXPECT_TRUE(seen.programFolder.contains(QLatin1Char(' '))) << seen.programFolder.toStdString();
    EXPECT_TRUE(seen.programFolder.endsWith(QLatin1String("/program")));
    EXPECT_TRUE(seen.lockPath.startsWith(seen.programFolder.chopped(8)));
    // The run removes its folder afterwards.
    EXPECT_FALSE(QFile::exists(seen.programFolder));
}

TEST_F(ScenarioFiles, LocationFilesPointAtTheDemoInstallUnlessLeftOut)
{
    ScenarioResult r = play(
        "start\n"
        "check file \"$PROGRAM/quake2.loc\" \"\\\"$GAME/quake2\\\"\\r\\n\"\n"
        "check file \"$PROGRAM/gorvan.loc\" \"\\\"$MOD/GAMEX86.DLL\\\"\\r\\n\"\n"
        "check exists \"$MOD\" yes\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    r = play(
        "no-location-files\n"
        "start\n"
        "check exists \"$PROGRAM/quake2.loc\" no\n"
        "check exists \"$PROGRAM/gorvan.loc\" no\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
}

TEST_F(ScenarioFiles, ReadOnlyAndUnreadablePathsRefuseTheProgram)
{
    const ScenarioResult r = play(
        "mkdir \"$PROGRAM/Saved\"\n"
        "read-only \"$PROGRAM/Saved\"\n"
        "start\n"
        "click Fake.Save\n"
        "unreadable \"$PROGRAM/quake2.loc\"\n"
        "click Fake.Read\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Save refused"), QStringLiteral("Read refused")}));
}

TEST_F(ScenarioProgram, LaunchesAreRecordedAndCanBeMadeToFail)
{
    const ScenarioResult r = play(
        "start\n"
        "check launches 0\n"
        "click Fake.Launch\n"
        "check launches 1\n"
        "check launch program \"/games/q 2/quake2\"\n"
        "check launch arguments +exec asdf.cfg\n"
        "check launch folder \"/games/q 2\"\n"
        "check launch arguments +exec\n"
        "fail-next-launch\n"
        "click Fake.Launch\n"
        "click Fake.Launch\n"
        "check launches 1\n"
        "check launches 2\n");
    // The failed start is not counted; line 13 finds none since line 12.
    EXPECT_EQ(failedLines(r), (std::vector<int>{8, 13}));
    EXPECT_EQ(seen.events, (QStringList{QStringLiteral("Launch ok"), QStringLiteral("Launch failed"),
                                        QStringLiteral("Launch ok")}));
}

TEST_F(ScenarioProgram, TheEndIsRecordedAndNoActionFollowsIt)
{
    const ScenarioResult r = play(
        "start\n"
        "check ended no\n"
        "click Fake.End\n"
        "check ended yes\n"
        "click Fake.Button\n");
    EXPECT_EQ(failedLines(r), std::vector<int>{5});
    EXPECT_EQ(seen.events, QStringList{QStringLiteral("End returned")});
}

TEST_F(ScenarioProgram, AnotherInstanceHoldsTheLock)
{
    ScenarioResult r = play(
        "other-instance\n"
        "start\n"
        "click Fake.Lock\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_FALSE(seen.lockTaken);
    r = play(
        "start\n"
        "click Fake.Lock\n");
    EXPECT_TRUE(r.passed) << report(r).toStdString();
    EXPECT_TRUE(seen.lockTaken);
}

TEST_F(ScenarioScript, MistakesAreReportedBeforeAnythingRuns)
{
    const ScenarioResult r = play(
        "start\n"
        "frobnicate Fake.Button\n"
        "check Fake.Label text \"open\n"
        "write \"$NOWHERE/x\" y\n"
        "check global NoSuchGlobal 1\n"
        "answer Maybe T X\n"
        "check Fake.Button colour red\n"
        "click\n"
        "write x \"\\q\"\n"
        "check Fake.Label text \"a\"b\n"
        "# a comment and an empty line are fine\n"
        "\n"
        "click Fake.Button # so is a comment behind a line\n");
    EXPECT_EQ(failedLines(r), (std::vector<int>{2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_FALSE(seen.started);
}

TEST(ScenarioText, WordsTakeQuotesEscapesAndVariables)
{
    const QMap<QString, QByteArray> vars{{QStringLiteral("GAME"), "/tmp/a b/game"}};
    QList<harness::Token> words;
    QString error;
    ASSERT_TRUE(harness::tokenizeLine("write \"$GAME/x.txt\" \"a\\tb\\r\\n\\\"q\\\"\\\\\\x00\\xff\\$GAME\" $GAME # rest",
                                      vars, &words, &error))
        << error.toStdString();
    ASSERT_EQ(words.size(), 4);
    EXPECT_EQ(words[0].bytes, QByteArray("write"));
    EXPECT_FALSE(words[0].quoted);
    EXPECT_EQ(words[1].bytes, QByteArray("/tmp/a b/game/x.txt"));
    EXPECT_EQ(words[2].bytes, QByteArray("a\tb\r\n\"q\"\\\0\xff$GAME", 16));
    EXPECT_EQ(words[3].bytes, QByteArray("/tmp/a b/game"));
    ASSERT_TRUE(harness::tokenizeLine("cost $5 \"\"", vars, &words, &error));
    ASSERT_EQ(words.size(), 3);
    EXPECT_EQ(words[1].bytes, QByteArray("$5"));
    EXPECT_TRUE(words[2].bytes.isEmpty());
    EXPECT_TRUE(words[2].quoted);
    EXPECT_FALSE(harness::tokenizeLine("x \"\\x4\"", vars, &words, &error));
    EXPECT_FALSE(harness::tokenizeLine("x $HOME", vars, &words, &error));
    EXPECT_TRUE(error.contains(QLatin1String("$HOME")));
}

TEST(ScenarioText, DifferencesAreShownWithEscapes)
{
    EXPECT_EQ(harness::quoteBytes(QByteArray("a\"\\\r\n\t\x01\xe9", 8)), QStringLiteral("\"a\\\"\\\\\\r\\n\\t\\x01\\xE9\""));
    EXPECT_TRUE(harness::describeByteDifference("same", "same").isEmpty());
    QByteArray longer;
    for (int i = 0; i < 40; ++i)
        longer += "line " + QByteArray::number(i) + "\r\n";
    QByteArray changed = longer;
    changed.replace("line 30\r\n", "line 30\n");
    const QString d = harness::describeByteDifference(longer, changed);
    EXPECT_TRUE(d.startsWith(QLatin1String("line 31 \"line 30\\r\\n\" / found line \"line 30\\n\""))) << d.toStdString();
}

TEST(ScenarioDoubles, RecordingDialogsAnswerFromTheQueueAndRecordEveryBox)
{
    harness::RecordingDialogs dialogs;
    dialogs.queueAnswer(platform::Answer::Yes, QStringLiteral("Delete"));
    dialogs.queueInput(QStringLiteral("Bob"));
    EXPECT_TRUE(platform::ask(QStringLiteral("Are you sure you want to delete a.tkd ?"), QStringLiteral("Delete")));
    EXPECT_EQ(platform::inputBox(QStringLiteral("Name?")), QStringLiteral("Bob"));
    EXPECT_EQ(platform::msgBox(QStringLiteral("Unplanned"), platform::Buttons::OkCancel), platform::Answer::Cancel);
    platform::beep();
    ASSERT_EQ(dialogs.boxes.size(), 3u);
    EXPECT_EQ(dialogs.boxes[0].text, QStringLiteral("Are you sure you want to delete a.tkd ?"));
    EXPECT_EQ(dialogs.boxes[0].buttons, platform::Buttons::YesNo);
    EXPECT_EQ(dialogs.boxes[0].icon, platform::Icon::Question);
    EXPECT_EQ(dialogs.boxes[1].kind, harness::BoxKind::Input);
    EXPECT_EQ(dialogs.boxes[1].title, platform::kAppTitle);
    EXPECT_EQ(dialogs.beeps, 1);
    ASSERT_EQ(dialogs.problems.size(), 1);
    EXPECT_TRUE(dialogs.problems[0].contains(QLatin1String("Unplanned")));
}

TEST(ScenarioDoubles, RecordingLauncherAndExitRecorderStandInForTheDesktop)
{
    harness::RecordingLauncher launcher;
    harness::ExitRecorder exits;
    launcher.failNext = 1;
    EXPECT_FALSE(platform::launcher().start({QStringLiteral("a"), {}, QString()}));
    EXPECT_TRUE(platform::launcher().start({QStringLiteral("b"), {QStringLiteral("x")}, QStringLiteral("/w")}));
    ASSERT_EQ(launcher.starts.size(), 1u);
    EXPECT_EQ(launcher.starts[0].program, QStringLiteral("b"));
    EXPECT_EQ(launcher.starts[0].workingFolder, QStringLiteral("/w"));
    platform::endProcess(3);
    EXPECT_EQ(exits.count(), 1);
    EXPECT_EQ(exits.lastCode(), 3);
}

} // namespace
