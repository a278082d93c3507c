#pragma once
#include "ui_SplashForm.h"

#include <QWidget>

namespace platform {
class Timer;
}

namespace torvik {

// The start form: single instance, the program's folders, the picture
// component, and the choice between a default start and a saved data file.
class SplashForm : public QWidget {
    Q_OBJECT
public:
    explicit SplashForm(QWidget* parent = nullptr);

    // False when the load ended the program (second instance, folder trouble).
    bool loaded() const { return loaded_; }

    Ui::SplashForm ui;
    platform::Timer* Timer4;
    platform::Timer* Timer1;
    platform::Timer* Timer3;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void loadForm();
    void loadPictureComponent();
    void offerDataFiles();
    void enableDataFileChoice();
    void startWizard();
    void deleteDataFile();
    void askToClose();
    void listDataFiles();
    void offerRepair();

    bool loaded_ = false;
};

} // namespace torvik
