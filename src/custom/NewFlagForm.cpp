#include "custom/NewFlagForm.h"

#include "platform/Dialogs.h"

namespace custom {

NewFlagForm::NewFlagForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    connect(ui.Command1, &QPushButton::clicked, this, &NewFlagForm::accept);
    connect(ui.Command2, &QPushButton::clicked, this, &NewFlagForm::reject);
}

void NewFlagForm::accept()
{
    const std::pair<QLineEdit*, const char*> needed[] = {
        {ui.Text1, "You must have a name!"},
        {ui.Text2, "This new flag must have a command"},
        {ui.Text3, "This new flag must have a value for being ON"}};
    for (const auto& [box, text] : needed) {
        if (box->text().isEmpty()) {
            platform::msgBox(QString::fromLatin1(text));
            return;
        }
    }
    // Braces and quotes are what Script.TK is made of, and a colon ends the
    // state where the name begins: such a flag would break the file.
    for (QLineEdit* box : {ui.Text1, ui.Text2, ui.Text3}) {
        const QString t = box->text();
        if (t.contains(QLatin1Char('{')) || t.contains(QLatin1Char('}')) || t.contains(QLatin1Char('"'))
            || (box == ui.Text1 && t.contains(QLatin1Char(':')))) {
            platform::msgBox(QStringLiteral("A flag can't hold {, } or \" (nor a name a colon)!"));
            return;
        }
    }
    QDialog::accept();
}

} // namespace custom
