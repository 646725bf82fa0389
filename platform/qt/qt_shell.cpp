#include "platform/qt/qt_shell.h"

#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QLocale>
#include <QUrl>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace klopfmeise {

namespace {

std::string lockPath() {
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    if (!folder.isEmpty() && QDir(QFile::decodeName(folder)).exists())
        return folder.toStdString() + "/klopfmeise.lock";
    return "/tmp/klopfmeise-" + std::to_string(getuid()) + ".lock";
}

} // namespace

FileLock::~FileLock() {
    if (descriptor_ >= 0)
        close(descriptor_);
}

bool FileLock::acquire(const std::string& path) {
    if (descriptor_ >= 0)
        return true;
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0)
        return true;
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const bool held = errno == EWOULDBLOCK;
        close(descriptor);
        return !held;
    }
    descriptor_ = descriptor;
    return true;
}

QtShell::QtShell(const Files& files, std::string commonData)
    : files_(files)
    , commonData_(std::move(commonData)) {}

void QtShell::openDocument(const std::wstring& target) {
    const QString text = toQt(target);
    const QUrl address(text, QUrl::StrictMode);
    // A drive letter looks like the scheme of an address.
    const bool web = address.isValid() && address.scheme().size() > 1;
    QDesktopServices::openUrl(web ? address : QUrl::fromLocalFile(toQt(files_.shown(target))));
}

void QtShell::showFolder(const std::wstring& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(toQt(files_.shown(path))));
}

std::wstring QtShell::chooseFolder(const std::wstring& title) {
    QFileDialog dialog(QApplication::activeWindow(), toQt(title), QDir::homePath());
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("Auswählen"));
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("Abbrechen"));
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Suchen in:"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("Ordner:"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Art:"));
    // What the toolkit's own dialog has no label for speaks another language.
    dialog.setViewMode(QFileDialog::List);
    if (auto* kind = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo")))
        kind->setItemText(0, QStringLiteral("Ordner"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return files_.entered(fromQt(QDir::cleanPath(dialog.selectedFiles().constFirst())));
}

std::wstring QtShell::commonDataFolder() {
    return files_.entered(fromQt(QDir::cleanPath(QFile::decodeName(commonData_.c_str()))));
}

std::wstring QtShell::programFolder() {
    return files_.entered(fromQt(QCoreApplication::applicationDirPath()));
}

bool QtShell::secondInstance() { return !lock_.acquire(lockPath()); }

wchar_t QtShell::decimalSign() {
    const QString sign = QLocale::system().decimalPoint();
    return sign.isEmpty() ? L',' : static_cast<wchar_t>(sign[0].unicode());
}

} // namespace klopfmeise
