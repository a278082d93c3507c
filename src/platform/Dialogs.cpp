#include "platform/Dialogs.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>

namespace platform {
namespace {

class DesktopDialogs final : public DialogService {
public:
    Answer message(const QString& text, const QString& title, Buttons buttons, Icon icon) override
    {
        QMessageBox box(QApplication::activeWindow());
        box.setWindowTitle(title);
        box.setText(text);
        switch (icon) {
        case Icon::None: box.setIcon(QMessageBox::NoIcon); break;
        case Icon::Information: box.setIcon(QMessageBox::Information); break;
        case Icon::Exclamation: box.setIcon(QMessageBox::Warning); break;
        case Icon::Critical: box.setIcon(QMessageBox::Critical); break;
        case Icon::Question: box.setIcon(QMessageBox::Question); break;
        }
        switch (buttons) {
        case Buttons::Ok: box.setStandardButtons(QMessageBox::Ok); break;
        case Buttons::OkCancel: box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
        case Buttons::YesNo: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
        case Buttons::YesNoCancel:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
            break;
        case Buttons::RetryCancel: box.setStandardButtons(QMessageBox::Retry | QMessageBox::Cancel); break;
        }
        switch (box.exec()) {
        case QMessageBox::Yes: return Answer::Yes;
        case QMessageBox::No: return Answer::No;
        case QMessageBox::Cancel: return Answer::Cancel;
        case QMessageBox::Retry: return Answer::Retry;
        default: return buttons == Buttons::YesNo ? Answer::No : Answer::Ok;
        }
    }

    QString input(const QString& prompt, const QString& title, const QString& defaultText) override
    {
        bool ok = false;
        const QString text = QInputDialog::getText(QApplication::activeWindow(), title, prompt,
                                                    QLineEdit::Normal, defaultText, &ok);
        return ok ? text : QString();
    }

    void beep() override { QApplication::beep(); }
};

DesktopDialogs desktopDialogs;
DialogService* current = nullptr;

} // namespace

DialogService& dialogs() { return current ? *current : desktopDialogs; }
void setDialogs(DialogService* service) { current = service; }

Answer msgBox(const QString& text, Buttons buttons, Icon icon, const QString& title)
{
    return dialogs().message(text, title, buttons, icon);
}

bool ask(const QString& text, const QString& title)
{
    return dialogs().message(text, title, Buttons::YesNo, Icon::Question) == Answer::Yes;
}

QString inputBox(const QString& prompt, const QString& title, const QString& defaultText)
{
    return dialogs().input(prompt, title, defaultText);
}

void beep() { dialogs().beep(); }

} // namespace platform
