#include "pages/GameTypePage.h"

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

} // namespace pages
