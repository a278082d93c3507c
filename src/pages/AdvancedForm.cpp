#include "pages/AdvancedForm.h"

#include "pages/NumericBoxes.h"

namespace pages {

AdvancedForm::AdvancedForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    connect(ui.Check1, &QCheckBox::toggled, this, [this](bool on) {
        for (QCheckBox* box : {ui.Check2, ui.Check3, ui.Check4, ui.Check5})
            box->setEnabled(on);
    });
    connect(ui.Check6, &QCheckBox::toggled, this, [this](bool on) {
        for (QLineEdit* box : {ui.Text1, ui.Text2, ui.Text3, ui.Text4, ui.Text5})
            box->setEnabled(on);
    });
    for (QLineEdit* box : {ui.Text1, ui.Text2, ui.Text3, ui.Text4})
        AttachNumericBox(box, FixedRule(0, 255, "0"));
    // The dots only stand behind the address parts; typing goes to the first part.
    ui.Text5->setFocusPolicy(Qt::NoFocus);
    connect(ui.Command1, &QPushButton::clicked, this, &QDialog::accept);
}

} // namespace pages
