#include "pages/GameTypePage.h"

#include "pages/SavedControls.h"

namespace pages {

GameTypePage::GameTypePage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    const std::pair<QRadioButton*, const char*> radios[] = {
        {ui.Option8, "SP"}, {ui.Option1, "DM"}, {ui.Option2, "DMT"}, {ui.Option3, "CTF"}};
    for (const auto& [radio, type] : radios) {
        const QString code = QString::fromLatin1(type);
        // A click on the radio that is on already toggles nothing, yet it
        // still counts as a choice (it puts that game's map back). A click
        // that changes the choice raises both the toggle and the click, and
        // counts once; a radio set from code only toggles.
        connect(radio, &QRadioButton::pressed, this, [this] { toggledInClick_ = false; });
        connect(radio, &QRadioButton::toggled, this, [this, code](bool on) {
            toggledInClick_ = true;
            if (on)
                emit chosen(code);
        });
        connect(radio, &QRadioButton::clicked, this, [this, code] {
            if (!toggledInClick_)
                emit chosen(code);
        });
    }
}

QString GameTypePage::multiplayerChoice() const
{
    if (ui.Option1->isChecked())
        return QStringLiteral("DM");
    if (ui.Option2->isChecked())
        return QStringLiteral("DMT");
    if (ui.Option3->isChecked())
        return QStringLiteral("CTF");
    return QString();
}

void GameTypePage::disableTeamGame() { ui.Option2->setEnabled(false); }

void GameTypePage::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    saved.gameType = ui.Option2->isChecked() ? '2' : ui.Option3->isChecked() ? '3' : ui.Option8->isChecked() ? '4' : '1';
}

// Any other mark leaves the radios as they are.
void GameTypePage::restoreAnswersFrom(const datafile::SavedAnswers& saved)
{
    const std::pair<char, QRadioButton*> radios[] = {
        {'1', ui.Option1}, {'2', ui.Option2}, {'3', ui.Option3}, {'4', ui.Option8}};
    for (const auto& [mark, radio] : radios)
        if (saved.gameType == mark)
            radio->setChecked(true);
}

} // namespace pages
