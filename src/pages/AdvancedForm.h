#pragma once
#include "ui_AdvancedForm.h"

#include <QDialog>

namespace torvik {
struct ComposerInput;
}

namespace datafile {
struct SavedAnswers;
}
namespace pages {

// Multiplayer options: dedicated server, a server to connect to, the
// connection speed and the download switches. It stays loaded while hidden,
// as the command is read from its controls.
class AdvancedForm : public QDialog {
    Q_OBJECT
public:
    explicit AdvancedForm(QWidget* parent = nullptr);
    Ui::AdvancedForm ui;

    // The answers a data file keeps, and putting them back from one.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved);

    // The game runs as a dedicated server, which moves the command's cut.
    bool dedicated() const;
    void readAnswersInto(torvik::ComposerInput& in) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace pages
