#include "backup/ViewFileForm.h"

namespace backup {

// The files are 8-bit text: every byte shows as the character it was typed as.
ViewFileForm::ViewFileForm(const QByteArray& text, QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    ui.text1->setPlainText(QString::fromLatin1(text));
}

} // namespace backup
