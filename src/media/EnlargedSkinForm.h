#pragma once
// The skin of the player setup page, large enough to see its detail; Escape
// closes it.
#include "ui_EnlargedSkinForm.h"

#include <QDialog>

namespace media {

class EnlargedSkinForm : public QDialog {
    Q_OBJECT
public:
    EnlargedSkinForm(const QString& skinFile, QWidget* parent = nullptr);

    Ui::EnlargedSkinForm ui;
};

} // namespace media
