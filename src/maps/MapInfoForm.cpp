#include "maps/MapInfoForm.h"

#include "maps/MapInfo.h"
#include "maps/MapInfoFile.h"
#include "maps/MapTitle.h"
#include "media/Pictures.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/ProgramContext.h"

#include <QFile>
#include <QSignalBlocker>

namespace torvik {
namespace {

const QString kScreenshotsFailedText = QStringLiteral("Couldn't check for screenshots!");
const QString kDescriptionsFailedText = QStringLiteral("Couldn't load map descriptions!");
const QString kDescriptionNotSavedText = QStringLiteral("Couldn't save the map description in %1.");

// MapInfo.dat as spelt on disk, or where a new one goes.
QString descriptionFile(const QString& folder)
{
    const QString wanted = platform::joinPath(folder, mapinfo::kFileName);
    const QString existing = platform::resolvePath(wanted);
    return existing.isEmpty() ? wanted : existing;
}

QByteArray nameBytes(const QString& map) { return QFile::encodeName(map); }

} // namespace

MapInfoForm::MapInfoForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    connect(ui.Command1, &QPushButton::clicked, this, &QDialog::close);
    connect(ui.VScroll1, &QScrollBar::valueChanged, this, &MapInfoForm::viewPicture);
    connect(ui.Text1, &QPlainTextEdit::textChanged, this, &MapInfoForm::keepDescriptionOnOneLine);
}

bool MapInfoForm::loadMap()
{
    ui.Label2->setText(InfoMapName);
    folder_ = platform::programContext.inProgramFolder(QStringLiteral("MapInfo"));
    if (!checkForPictures()) {
        platform::msgBox(kScreenshotsFailedText);
        platform::exitProgram();
        return false;
    }
    if (shots_.isEmpty()) {
        ui.VScroll1->hide();
        ui.VScroll1->setRange(0, 0);
        ui.Label6->show();
    }
    viewPicture();
    if (!loadDescription()) {
        platform::msgBox(kDescriptionsFailedText);
        platform::exitProgram();
        return false;
    }
    ui.Label3->setText(GetMapTitle(InfoMapName));
    saveOnClose_ = true;
    return true;
}

// The shots are numbered from 1 in the folder's list order; the scroll bar
// picks one.
bool MapInfoForm::checkForPictures()
{
    if (!platform::folderExists(folder_))
        return false;
    shots_ = mapinfo::screenshotsOf(platform::listFiles(folder_, {QStringLiteral("*.pcx"), QStringLiteral("*.tga")}),
                                    InfoMapName);
    if (!shots_.isEmpty()) {
        ui.VScroll1->show();
        ui.VScroll1->setRange(1, int(shots_.size()));
    }
    return true;
}

void MapInfoForm::viewPicture()
{
    const int shot = ui.VScroll1->value();
    if (shot < 1 || shot > shots_.size()) {
        media::clearGamePicture(ui.PicShow);
        return;
    }
    media::showGamePicture(ui.PicShow, platform::joinPath(folder_, shots_[shot - 1]));
}

bool MapInfoForm::loadDescription()
{
    const QString path = platform::resolvePath(platform::joinPath(folder_, mapinfo::kFileName));
    if (path.isEmpty() || !platform::fileExists(path))
        return true;
    QByteArray file;
    if (!platform::readFile(path, file))
        return false;
    if (const std::optional<QByteArray> text = mapinfo::description(file, nameBytes(InfoMapName)))
        ui.Text1->setPlainText(QString::fromLatin1(*text));
    return true;
}

// A description is one line of an 8-bit file: typed or pasted line breaks go
// at once, and so do characters the file can't hold, so that what the user
// sees is what is kept.
void MapInfoForm::keepDescriptionOnOneLine()
{
    const QString text = ui.Text1->toPlainText();
    QString kept;
    kept.reserve(text.size());
    int cursor = ui.Text1->textCursor().position();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r') || c.unicode() > 0xFF) {
            if (i < cursor)
                --cursor;
            continue;
        }
        kept += c;
    }
    if (kept == text)
        return;
    {
        const QSignalBlocker quiet(ui.Text1);
        ui.Text1->setPlainText(kept);
    }
    QTextCursor at = ui.Text1->textCursor();
    at.setPosition(qMax(0, cursor));
    ui.Text1->setTextCursor(at);
}

void MapInfoForm::done(int result)
{
    if (saveOnClose_) {
        saveOnClose_ = false;
        saveDescription();
    }
    QDialog::done(result);
}

// Runs on every close, changed or not: a first look at a map leaves a record
// of it, and each look moves its record to the end of the file.
void MapInfoForm::saveDescription()
{
    if (ui.Text1->toPlainText().isEmpty())
        ui.Text1->setPlainText(mapinfo::kNoDescription);
    const QString path = descriptionFile(folder_);
    std::optional<QByteArray> file;
    if (platform::fileExists(path)) {
        QByteArray bytes;
        if (!platform::readFile(path, bytes)) {
            platform::msgBox(kDescriptionNotSavedText.arg(path));
            return;
        }
        file = bytes;
    }
    const QByteArray saved =
        mapinfo::savedFile(file, nameBytes(ui.Label2->text()), ui.Text1->toPlainText().toLatin1());
    if (!platform::writeFile(path, saved))
        platform::msgBox(kDescriptionNotSavedText.arg(path));
}

} // namespace torvik
