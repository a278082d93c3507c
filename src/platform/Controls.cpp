#include "platform/Controls.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

#include <utility>

namespace platform {

void ClickLabel::mouseReleaseEvent(QMouseEvent* event)
{
    // The release that ends a double click belongs to the double click.
    if (std::exchange(afterDoubleClick_, false))
        return;
    if (!rect().contains(event->position().toPoint()))
        return;
    if (event->button() == Qt::LeftButton)
        emit clicked();
    else if (event->button() == Qt::RightButton)
        emit rightClicked();
}

void ClickLabel::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        afterDoubleClick_ = true;
        emit doubleClicked();
    }
}

FolderChooser::FolderChooser(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    box_ = new QLineEdit(this);
    box_->setReadOnly(true);
    button_ = new QPushButton(tr("Browse..."), this);
    layout->addWidget(box_, 1);
    layout->addWidget(button_);
    connect(button_, &QPushButton::clicked, this, &FolderChooser::browse);
}

void FolderChooser::setPath(const QString& path)
{
    path_ = path;
    box_->setText(path);
    emit pathChanged(path);
}

void FolderChooser::browse()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, QString(), path_.isEmpty() ? QStringLiteral("/") : path_);
    if (!chosen.isEmpty())
        setPath(chosen);
}

void enableWhileChecked(QAbstractButton* box, QWidget* follower)
{
    QObject::connect(box, &QAbstractButton::toggled, follower, [follower](bool on) { follower->setEnabled(on); });
}

} // namespace platform
