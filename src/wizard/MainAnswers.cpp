// The answer pages of the main form: what their controls do, the command
// made of them, and the launch.
#include "custom/CustomForm.h"
#include "maps/MapCycles.h"
#include "media/Graphics.h"
#include "pages/AdvancedForm.h"
#include "pages/NumericBoxes.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/Timer.h"
#include "wizard/Globals.h"
#include "wizard/Launch.h"
#include "wizard/MainForm.h"
#include "wizard/Program.h"

#include <QFile>

namespace torvik {
namespace {

const QString CRLF = QStringLiteral("\r\n");

void enableWith(QCheckBox* box, QWidget* follower)
{
    QObject::connect(box, &QCheckBox::toggled, follower, [follower](bool on) { follower->setEnabled(on); });
}

QString skillName(int value)
{
    static const char* const names[] = {"Easy", "Medium", "Hard", "Very Hard"};
    return value >= 0 && value <= 3 ? QString::fromLatin1(names[value]) : QString();
}

} // namespace

void MainForm::SetupAnswerPages()
{
    connect(ui.GameType, &pages::GameTypePage::chosen, this, &MainForm::chooseGameType);

    auto& dm = ui.DMFlags->ui;
    for (QCheckBox* box : {dm.Check2, dm.Check3, dm.Check4, dm.Check5, dm.Check6, dm.Check7, dm.Check8, dm.Check9,
                           dm.Check10, dm.Check11, dm.Check12, dm.Check13, dm.Check14, dm.Check16, dm.Check19,
                           dm.Check47})
        connect(box, &QCheckBox::toggled, this, &MainForm::UpdateDMFlags);
    connect(ui.CTFflags, &pages::CTFflagsPage::flagsChanged, this, &MainForm::UpdateDMFlags);
    enableWith(dm.Check17, dm.Text4);
    enableWith(dm.Check18, dm.Text3);
    enableWith(dm.Check31, dm.Text10);
    pages::AttachNumericBox(dm.Text3, pages::FixedRule(0, 500, "0"));
    pages::AttachNumericBox(dm.Text4, pages::FixedRule(0, 500, "0"));
    pages::AttachNumericBox(dm.Text10, pages::FixedRule(0, 100, "0"));
    connect(dm.Command25, &QPushButton::clicked, this, [this] { Advanced->exec(); });
    connect(dm.Command27, &QPushButton::clicked, this, [this] { Custom->exec(); });

    auto& gf = ui.GorvanFlags->ui;
    connect(gf.HScroll2, &QScrollBar::valueChanged, this, [this](int value) {
        const QString name = skillName(value);
        if (!name.isEmpty())
            ui.GorvanFlags->ui.Label31->setText(name);
    });
    enableWith(gf.Check21, gf.Text5);
    enableWith(gf.Check32, gf.Text11);
    pages::AttachNumericBox(gf.Text5, pages::FixedRule(1, 999, "1", {QStringLiteral("0000"), QStringLiteral("000"),
                                                                     QStringLiteral("00")}));
    pages::AttachNumericBox(gf.Text11, pages::FixedRule(0, 40, "0"));

    connect(ui.CTFflags, &pages::CTFflagsPage::pictureWanted, this, [this](const QString& key) {
        if (PageNumber == 7)
            media::ShowGraphic(key, ui.CurrentPix);
    });
    QLineEdit* maxPlayers = dm.Text10;
    ui.CTFflags->limitBotsPerHuman([maxPlayers] { return pages::leadingValue(maxPlayers->text()); });

    auto& ps = ui.PlayerSetup->ui;
    enableWith(ps.Check35, ps.Text13);
    for (auto [box, list] : {std::pair{ps.Check41, ps.Combo3}, std::pair{ps.Check43, ps.Combo4}}) {
        QComboBox* combo = list;
        connect(box, &QCheckBox::toggled, this, [combo](bool on) {
            combo->setEnabled(on);
            if (on && combo->count() > 0)
                combo->setCurrentIndex(0);
        });
    }

    auto& ad = ui.AllDone->ui;
    connect(ad.Check26, &QCheckBox::toggled, this, [this](bool on) {
        auto& a = ui.AllDone->ui;
        a.Text6->setVisible(on);
        a.Label53->setVisible(on);
        a.Check44->setVisible(on);
    });
    connect(ad.Start, &QPushButton::clicked, this, &MainForm::Start_Click);
    Timer6 = new platform::Timer(this, 1500, false);
    Timer6->setObjectName(QStringLiteral("Timer6"));
    connect(Timer6, &platform::Timer::timeout, this, [this] {
        ui.AllDone->ui.Start->setEnabled(true);
        Timer6->setEnabled(false);
    });

    auto& sd = ui.StartDialog->ui;
    connect(sd.Label42, &platform::ClickLabel::clicked, this, &MainForm::Label42_Click);
    const std::pair<platform::ClickLabel*, const char*> links[] = {
        {sd.Label10, "mailto:torvik@torvik.invalid"},
        {sd.Label32, "mailto:gorvan@gorvan.invalid"},
        {sd.Label11, "https://torvik.invalid/"},
        {sd.Label12, "https://gorvan.invalid/"},
    };
    for (const auto& [label, target] : links) {
        const QString where = QString::fromLatin1(target);
        connect(label, &platform::ClickLabel::clicked, this, [where] { platform::openWithDesktop(where); });
    }
}

void MainForm::FillFixedLists()
{
    auto fill = [](QComboBox* combo, const QStringList& items) {
        combo->clear();
        combo->addItems(items);
        combo->setCurrentIndex(-1);
    };
    fill(ui.PlayerSetup->ui.Combo3, {QStringLiteral("Right"), QStringLiteral("Left"), QStringLiteral("Center")});
    fill(ui.PlayerSetup->ui.Combo4,
         {QStringLiteral("None"), QStringLiteral("Cross"), QStringLiteral("Red Dot"), QStringLiteral("Angle")});
    fill(Advanced->ui.Combo8,
         {QStringLiteral("Don't Use"), QStringLiteral("28.8 Modem"), QStringLiteral("33.6 Modem"),
          QStringLiteral("Single ISDN"), QStringLiteral("56K Modem"), QStringLiteral("Duel ISDN"),
          QStringLiteral("Cable Modem"), QStringLiteral("T1 Connection"), QStringLiteral("Local-Area-Network")});
}

// Single player has a map tree of its own, so entering or leaving it reads
// the maps again. Every choice of a multiplayer type puts its map back, even
// without a change: players expect a fitting map after choosing the game.
void MainForm::chooseGameType(const QString& code)
{
    if (code == QLatin1String("SP")) {
        if (GameTypeCode != code) {
            GameTypeCode = code;
            ui.StartMap->addMaps();
        }
        return;
    }
    if (GameTypeCode == QLatin1String("SP")) {
        GameTypeCode = code;
        ui.StartMap->addMaps();
    }
    if (DataFileMode == 0)
        ui.StartMap->showDefaultMap(code);
    GameTypeCode = code;
}

DMFlagBoxes dmflagBoxes(const MainForm& form)
{
    const auto& dm = form.ui.DMFlags->ui;
    DMFlagBoxes boxes = {{2, dm.Check2->isChecked()},   {3, dm.Check3->isChecked()},   {4, dm.Check4->isChecked()},
            {5, dm.Check5->isChecked()},   {6, dm.Check6->isChecked()},   {7, dm.Check7->isChecked()},
            {8, dm.Check8->isChecked()},   {9, dm.Check9->isChecked()},   {10, dm.Check10->isChecked()},
            {11, dm.Check11->isChecked()}, {12, dm.Check12->isChecked()}, {13, dm.Check13->isChecked()},
            {14, dm.Check14->isChecked()}, {16, dm.Check16->isChecked()}, {19, dm.Check19->isChecked()},
            {47, dm.Check47->isChecked()}};
    boxes.merge(form.ui.CTFflags->flagBoxes());
    return boxes;
}

void MainForm::UpdateDMFlags()
{
    const int value = dmflagsForTitle(dmflagBoxes(*this), GameTypeCode == QLatin1String("CTF"));
    ui.DMFlags->ui.Frame10->setTitle(QStringLiteral("Death Match Flags (") + QString::number(value) + QLatin1Char(')'));
}

ComposerInput MainForm::ReadAnswers() const
{
    const auto& dm = ui.DMFlags->ui;
    const auto& gf = ui.GorvanFlags->ui;
    const auto& ps = ui.PlayerSetup->ui;
    const auto& ad = Advanced->ui;

    ComposerInput in;
    in.quake2Location = Quake2Location;
    in.modShortName = modShortName();
    in.gameTypeCode = GameTypeCode;
    in.dedicated = ad.Check16->isChecked();
    in.setName = ps.Check35->isChecked();
    in.playerName = ps.Text13->text();
    in.skill = gf.HScroll2->value();
    in.viewWeapons = dm.Check15->isChecked();
    in.cheats = dm.Check20->isChecked();
    in.timeLimitOn = dm.Check17->isChecked();
    in.timeLimit = dm.Text4->text();
    in.fragLimitOn = dm.Check18->isChecked();
    in.fragLimit = dm.Text3->text();
    in.botChat = gf.Check25->isChecked();
    in.autoSkill = gf.Check1->isChecked();
    in.clientCommands = gf.Check24->isChecked();
    in.connectInfo = gf.Check23->isChecked();
    in.calcNodes = gf.Check22->isChecked();
    in.maxPlayersOn = dm.Check31->isChecked();
    in.maxPlayers = dm.Text10->text();
    in.freeSlotsOn = gf.Check32->isChecked();
    in.freeSlots = gf.Text11->text();
    in.dmflags = dmflagBoxes(*this);
    in.tarzanEnabled = gf.Check40->isEnabled();
    in.tarzan = gf.Check40->isChecked();
    in.handOn = ps.Check41->isChecked();
    in.handIndex = ps.Combo3->currentIndex();
    in.crosshairOn = ps.Check43->isChecked();
    in.crosshairIndex = ps.Combo4->currentIndex();
    in.skinOn = ps.Check42->isChecked();
    in.model = ps.Combo5->currentText();
    in.skin = ps.Combo6->currentText();
    in.rateText = ad.Combo8->currentText();
    in.rateIndex = ad.Combo8->currentIndex();
    in.downloads = ad.Check1->isChecked();
    in.downloadMaps = ad.Check2->isChecked();
    in.downloadModels = ad.Check3->isChecked();
    in.downloadSounds = ad.Check4->isChecked();
    in.downloadPlayers = ad.Check5->isChecked();
    in.connect = ad.Check6->isChecked();
    in.address[0] = ad.Text1->text();
    in.address[1] = ad.Text2->text();
    in.address[2] = ad.Text3->text();
    in.address[3] = ad.Text4->text();
    ui.StartMap->readAnswersInto(in);
    in.lagOn = gf.Check21->isChecked();
    in.lag = gf.Text5->text();

    ui.Teams->readAnswersInto(in);
    ui.SpawnBots->readAnswersInto(in);
    ui.CTFflags->readAnswersInto(in);

    const QTreeWidget* shown = Custom->ui.TreeView2;
    const QTreeWidget* shadow = Custom->ui.TreeView1;
    QList<const QTreeWidgetItem*> shownNodes, shadowNodes;
    auto walk = [](const QTreeWidget* tree, QList<const QTreeWidgetItem*>& out) {
        for (QTreeWidgetItemIterator it(const_cast<QTreeWidget*>(tree)); *it; ++it)
            out << *it;
    };
    walk(shown, shownNodes);
    walk(shadow, shadowNodes);
    for (qsizetype i = 0; i < shownNodes.size() && i < shadowNodes.size(); ++i)
        in.customOptions << CustomOption{shownNodes[i]->data(0, Qt::UserRole).toInt() == 1, shadowNodes[i]->text(0)};
    return in;
}

// The text box shows lines; the command keeps CR LF, which the split counts.
void MainForm::composeCommandLine()
{
    QString text = torvik::composeCommandLine(ReadAnswers());
    ui.CommandLine->ui.CmdLine->setPlainText(text.replace(CRLF, QStringLiteral("\n")));
}

void MainForm::TryCommand()
{
    QString text = ui.CommandLine->ui.CmdLine->toPlainText();
    text.replace(QLatin1Char('\n'), CRLF);
    const SplitCommand split = splitCommandLine(text, Advanced->ui.Check16->isChecked());
    if (!split.ok) {
        platform::beep();
        platform::msgBox(QStringLiteral("Internal Error: Couldn't fix command line"));
        return;
    }
    LaunchHead = split.launchHead;
    const QString home = platform::joinPath(ProgramFolder, QStringLiteral("asdf.cfg"));
    QString baseq2 = platform::resolvePath(platform::joinPath(gameFolder(), QStringLiteral("baseq2")));
    if (baseq2.isEmpty())
        baseq2 = platform::joinPath(gameFolder(), QStringLiteral("baseq2"));
    const QString copy = platform::joinPath(baseq2, QStringLiteral("asdf.cfg"));
    const QByteArray bytes = split.config.toUtf8();
    QFile::remove(copy);
    if (!platform::writeFile(home, bytes) || !QFile::copy(home, copy)) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't create internal command line!"));
        return;
    }
    Timer6->setEnabled(true);
}

void MainForm::Start_Click()
{
    const auto& ad = ui.AllDone->ui;
    const QString folder = gameFolder();
    // Saving the answers and the chosen map cycle come before the launch.
    if (ad.Check26->isChecked() && ad.Check44->isChecked())
        return;
    if (!FixMapCycle(ui.StartMap->chosenCycle(), ui.StartMap->firstCycleRow()))
        return;

    platform::ProcessStart start;
    if (GameTypeCode == QLatin1String("SP")) {
        start = platform::executableStart(Quake2Location, {QStringLiteral("+map"), ui.StartMap->chosenMap()},
                                          folder);
    } else {
        QStringList words = splitHead(LaunchHead + QStringLiteral(" +exec asdf.cfg "), Quake2Location);
        const QString program = words.isEmpty() ? QString() : words.takeFirst();
        start = platform::executableStart(program, words, folder);
    }
    if (start.program.isEmpty() || !platform::launcher().start(start)) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't run Quake2. Re-verify settings!"));
        return;
    }
    if (ad.Check30->isChecked())
        ExitProgram(true);
}

void MainForm::Label42_Click()
{
    const QString tool = platform::resolvePath(platform::joinPath(ProgramFolder, QStringLiteral("zprw.exe")));
    if (tool.isEmpty() || !platform::fileExists(tool)) {
        platform::msgBox(QStringLiteral("Couldn't start the Zeprin Update Wizard!"));
        return;
    }
    if (!platform::launcher().start(platform::executableStart(tool, {}, ProgramFolder))) {
        platform::msgBox(QStringLiteral("Couldn't start the Zeprin Update Wizard!"));
        return;
    }
    ExitProgram(true);
}

} // namespace torvik
