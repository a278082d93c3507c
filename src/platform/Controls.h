#pragma once
// Small controls that the forms need and Qt lacks: labels and pictures that
// take clicks, and the folder chooser that stands where a drive and folder
// list would be.
#include <QLabel>
#include <QWidget>

class QAbstractButton;
class QLineEdit;
class QPushButton;

namespace platform {

// A label or picture that reacts to the mouse like a button.
class ClickLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

signals:
    void clicked();
    void rightClicked();
    void doubleClicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool afterDoubleClick_ = false;
};

// A folder chooser: the path shown in a box and a button that opens the
// desktop's folder dialog. pathChanged fires once for every folder chosen,
// whether by the user or from code.
class FolderChooser : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY pathChanged USER true)
public:
    explicit FolderChooser(QWidget* parent = nullptr);

    QString path() const { return path_; }
    void setPath(const QString& path);

signals:
    void pathChanged(const QString& path);

private:
    void browse();

    QString path_;
    QLineEdit* box_;
    QPushButton* button_;
};

// Keeps a control enabled exactly while a check box is ticked, from the next
// change of the box on.
void enableWhileChecked(QAbstractButton* box, QWidget* follower);

} // namespace platform
