#include "pages/SpawnBotsPage.h"

#include "bots/BotStore.h"
#include "bots/Examination.h"
#include "command/Composer.h"
#include "pages/BotViews.h"
#include "platform/NumericBoxes.h"
#include "pages/SavedControls.h"
#include "platform/Timer.h"

namespace pages {

SpawnBotsPage::SpawnBotsPage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    // The two views stand at one place, one of them shown.
    botRows_ = showStoreRows(ui.ListView1, ui.List2);
    ui.ListView1->setSortingEnabled(false);
    ui.ListView1->setSelectionMode(QAbstractItemView::SingleSelection);
    ui.ListView1->setIconSize(QSize(16, 16));

    platform::AttachNumericBox(ui.Text1, platform::FixedRule(0, 60, "0", {QStringLiteral("00")}));
    connect(ui.Option4, &QRadioButton::toggled, this, &SpawnBotsPage::showBotMode);
    connect(ui.Option5, &QRadioButton::toggled, this, &SpawnBotsPage::showBotMode);
    connect(ui.Text1, &QLineEdit::textChanged, this, &SpawnBotsPage::followAmount);
    connect(ui.HScroll1, &QScrollBar::valueChanged, this, &SpawnBotsPage::followSlider);
    connect(ui.Check33, &QCheckBox::toggled, this, [this] { showExtendedView(ui.Check33->isChecked()); });
    connect(ui.Check34, &QCheckBox::toggled, this, [this] { showExtendedView(!ui.Check34->isChecked()); });
    connect(ui.ListView1, &QTreeView::clicked, this,
            [this](const QModelIndex& index) { ListCurrentBot = index.row() + 1; });
    onViewMouse(ui.ListView1, [this] { toggleBotMark(); }, [this] { examineBot(); });
    onViewSpace(ui.ListView1, [this](int row) {
        ListCurrentBot = row + 1;
        toggleBotMark();
    });
    Timer2 = new platform::Timer(this, 100, false);
    Timer2->setObjectName(QStringLiteral("Timer2"));
    connect(Timer2, &platform::Timer::timeout, this, [this] {
        Timer2->setEnabled(false);
        showBotCounter();
    });
    connect(ui.List2->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { Timer2->setEnabled(true); });
    connect(ui.Command3, &QPushButton::clicked, this, &SpawnBotsPage::refreshBots);

    showBotMode();
}

void SpawnBotsPage::loadBots()
{
    const bool showProgress = torvik::ShowBotProgress == 1 && torvik::BotFileErrorFlag != 1;
    if (showProgress) {
        emit loadBegun();
        torvik::BotProgressHook = [this](int value, int maximum) { emit loadProgressed(value, maximum); };
    }
    const std::optional<std::vector<int>> listed = torvik::GetNewBots();
    torvik::BotProgressHook = {};
    if (showProgress)
        emit loadEnded();

    if (listed)
        fillBotViews(ui.ListView1, botRows_, torvik::Bots, *listed);
    else
        botRows_->clear();
    markChosenBots();
}

void SpawnBotsPage::showBotMode()
{
    const bool specific = ui.Option5->isChecked();
    ui.Frame5->setVisible(!specific);
    for (QWidget* w : std::initializer_list<QWidget*>{ui.Frame6, ui.Label35, ui.Label36, ui.Label2, ui.Command3,
                                                      ui.Check33, ui.Check34})
        w->setVisible(specific);
    ui.Frame4->setTitle(specific ? QStringLiteral("Type of Bot - Right click on bot to Examine bot")
                                 : QStringLiteral("Type of Bot"));
}

// The slider follows the amount box; the box keeps what was typed, even
// when that is empty.
void SpawnBotsPage::followAmount()
{
    const QString text = ui.Text1->text();
    int value = 0;
    if (!text.isEmpty() && platform::isNumericText(text)) {
        const double n = platform::numericValue(text);
        if (n >= 0 && n <= 60)
            value = qRound(n);
    }
    tyingAmount_ = true;
    ui.HScroll1->setValue(value);
    tyingAmount_ = false;
}

void SpawnBotsPage::followSlider()
{
    if (tyingAmount_)
        return;
    ui.Text1->setText(QString::number(ui.HScroll1->value()));
}

// The two boxes are one choice: the extended report view or the simple list.
// Setting them here calls back in with the same choice, which changes nothing.
void SpawnBotsPage::showExtendedView(bool extended)
{
    ui.Check33->setChecked(extended);
    ui.Check34->setChecked(!extended);
    ui.ListView1->setVisible(extended);
    if (extended)
        markChosenBots();
    ui.List2->setVisible(!extended);
}

void SpawnBotsPage::markChosenBots()
{
    markSelectedRows(botRows_, ui.List2);
    showBotCounter();
}

void SpawnBotsPage::showBotCounter()
{
    ui.Label36->setText(QString::number(selectedRowCount(ui.List2)));
    ui.Label2->setText(QLatin1Char('/') + QString::number(botRows_->rowCount()));
}

// Double-clicking a row toggles it in the selection; the list's own
// highlight means nothing.
void SpawnBotsPage::toggleBotMark()
{
    if (ListCurrentBot < 1 || ListCurrentBot > botRows_->rowCount())
        return;
    toggleMarkedRow(botRows_, ui.List2, ListCurrentBot - 1);
}

void SpawnBotsPage::examineBot()
{
    const int row = ListCurrentBot - 1;
    if (row < 0 || row >= botRows_->rowCount())
        return;
    QStringList cells;
    for (int column = 0; column < 9; ++column)
        cells << botRows_->text(row, column);
    torvik::examineBot(cells, window());
}

// Reading bots.cfg again loses the selection.
void SpawnBotsPage::refreshBots()
{
    botRows_->clear();
    torvik::Bots.clear();
    torvik::BotCount = 0;
    ui.Label36->setText(QStringLiteral("0"));
    torvik::ShowBotProgress = 1;
    loadBots();
    torvik::ShowBotProgress = 0;
}

void SpawnBotsPage::settleEmptyAmount()
{
    if (ui.Text1->text().isEmpty()) {
        ui.Text1->setText(QStringLiteral("0"));
        ui.HScroll1->setValue(0);
    }
}

bool SpawnBotsPage::specificBots() const { return ui.Option5->isChecked(); }

QString SpawnBotsPage::chosenCount() const { return ui.Label36->text(); }

int SpawnBotsPage::listedBotCount() const { return botRows_->rowCount(); }

QStringList SpawnBotsPage::chosenBots() const { return selectedRowTexts(ui.List2); }

void SpawnBotsPage::readAnswersInto(torvik::ComposerInput& in) const
{
    in.randomBots = ui.Option4->isChecked();
    in.randomBotCount = ui.Text1->text();
    in.specificBots = ui.Option5->isChecked();
    in.selectedCount = ui.Label36->text();
    in.selectedBots = chosenBots();
}

void SpawnBotsPage::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    saved.randomBots = !ui.Option5->isChecked();
    saveTexts(saved, {ui.Text1});
    saved.randomSlider = ui.HScroll1->value();
    saved.chosenCount = ui.Label36->text();
    saved.bots = chosenBots();
}

// Bots that left bots.cfg since the file was saved are left out, and the
// counter counts those found.
void SpawnBotsPage::restoreAnswersFrom(const datafile::SavedAnswers& saved)
{
    (saved.randomBots ? ui.Option4 : ui.Option5)->setChecked(true);
    if (saved.randomBots) {
        restoreTexts(saved, {ui.Text1});
        ui.HScroll1->setValue(saved.randomSlider);
    } else {
        ui.Label36->setText(saved.chosenCount);
        selectRowsNamed(ui.List2, saved.bots);
    }
    Timer2->setEnabled(false);
    markChosenBots();
}

} // namespace pages
