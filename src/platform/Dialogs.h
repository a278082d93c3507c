#pragma once
// Every message box, input box and beep of the program goes through here, so
// that one place decides how they look and tests can answer them.
#include <QString>

namespace platform {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel };
enum class Icon { None, Information, Exclamation, Critical, Question };
enum class Answer { Ok, Cancel, Yes, No, Retry };

// The title a box gets when its caller names none.
inline const QString kAppTitle = QStringLiteral("Torvik");

class DialogService {
public:
    virtual ~DialogService() = default;
    virtual Answer message(const QString& text, const QString& title, Buttons buttons, Icon icon) = 0;
    // Returns the typed text; an empty text when the user cancels.
    virtual QString input(const QString& prompt, const QString& title, const QString& defaultText) = 0;
    virtual void beep() = 0;
};

DialogService& dialogs();
// Replaces the service (tests); nullptr restores the desktop one. Not owned.
void setDialogs(DialogService* service);

Answer msgBox(const QString& text, Buttons buttons = Buttons::Ok, Icon icon = Icon::None,
              const QString& title = kAppTitle);
// A Yes/No question with the question icon; true on Yes.
bool ask(const QString& text, const QString& title);
QString inputBox(const QString& prompt, const QString& title = kAppTitle,
                 const QString& defaultText = QString());
void beep();

} // namespace platform
