#pragma once
// The map information form: a map's name, the title stored in the map, the
// user's screenshots of it and the description the user types, which is kept
// in MapInfo.dat whenever the form closes.
#include "ui_MapInfoForm.h"

#include <QDialog>
#include <QStringList>

namespace torvik {

class MapInfoForm : public QDialog {
    Q_OBJECT
public:
    explicit MapInfoForm(QWidget* parent = nullptr);

    // Fills the form for InfoMapName. False when the screenshots or the
    // descriptions couldn't be read: the user was told, the program is on its
    // way out, and the form is not to be shown.
    bool loadMap();

    void done(int result) override;

    Ui::MapInfoForm ui;

private:
    bool checkForPictures();
    void viewPicture();
    bool loadDescription();
    void keepDescriptionOnOneLine();
    void saveDescription();

    QString folder_;
    QStringList shots_;
    // A form that couldn't read its files writes nothing back.
    bool saveOnClose_ = false;
};

} // namespace torvik
