#pragma once
// One bot as the player will meet it: its model, skin and pictures, its six
// attributes as pictures, the model's sounds and the model viewer. It shows
// the examined bot's values and changes nothing.
#include "ui_ExamineForm.h"

#include <QDialog>

namespace torvik {

class ExamineForm : public QDialog {
    Q_OBJECT
public:
    explicit ExamineForm(QWidget* parent = nullptr);

    Ui::ExamineForm ui;

private:
    void showBot();
    void playChosenSound();
    void viewModel();
};

} // namespace torvik
