#include "platform/common_dialog.h"

#include "core/file.h"
#include "platform/colours.h"

#include <QColorDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFontDialog>
#include <algorithm>

namespace zolt {

namespace {

/// The dialog's name filters from captions and patterns in turn. Patterns that
/// stand in a caption as well aren't shown twice.
QStringList nameFilters(const QString &filter) {
    QStringList filters;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString caption = parts[i].trimmed();
        const qsizetype parenthesis = caption.lastIndexOf(u" (*");
        if (parenthesis >= 0)
            caption.truncate(parenthesis);
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        filters << QStringLiteral("%1 (%2)").arg(caption, patterns.join(QChar(u' ')));
    }
    return filters;
}

QString pathFromBytes(const std::string &path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

std::string bytesFromPath(const QString &path) { return QFile::encodeName(path).toStdString(); }

} // namespace

CommonDialog::CommonDialog(const QString &name, QWidget *owner) : QObject(owner), m_owner(owner) {
    setObjectName(name);
}

std::string CommonDialog::FileTitle() const { return titleOf(FileName); }

int CommonDialog::showFileDialog(QFileDialog &dialog) {
    const QStringList filters = nameFilters(Filter);
    dialog.setObjectName(objectName());
    dialog.setNameFilters(filters);
    if (!filters.isEmpty())
        dialog.selectNameFilter(filters[std::clamp<qsizetype>(FilterIndex - 1, 0, filters.size() - 1)]);

    const QString start = pathFromBytes(InitDir);
    const QString folder = QFileInfo(start).isDir() ? start : pathFromBytes(folderOf(InitDir));
    if (!folder.isEmpty() && QDir(folder).exists())
        dialog.setDirectory(folder);
    if (!FileName.empty())
        dialog.selectFile(pathFromBytes(titleOf(FileName)));

    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return kDialogCancelled;
    FileName = bytesFromPath(dialog.selectedFiles().first());
    FilterIndex = static_cast<int>(std::max<qsizetype>(filters.indexOf(dialog.selectedNameFilter()), 0)) + 1;
    return kDialogDone;
}

int CommonDialog::ShowOpen() {
    QFileDialog dialog(m_owner, DialogTitle);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(Flags & kFileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    return showFileDialog(dialog);
}

int CommonDialog::ShowSave() {
    QFileDialog dialog(m_owner, DialogTitle);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !(Flags & kOverwritePrompt));
    return showFileDialog(dialog);
}

int CommonDialog::ShowColor() {
    QColorDialog dialog(qtColour(Color, QPalette::WindowText), m_owner);
    dialog.setObjectName(objectName());
    if (dialog.exec() != QDialog::Accepted)
        return kDialogCancelled;
    Color = colourValue(dialog.selectedColor());
    return kDialogDone;
}

int CommonDialog::ShowFont() {
    QFontDialog dialog(Font, m_owner);
    dialog.setObjectName(objectName());
    if (dialog.exec() != QDialog::Accepted)
        return kDialogCancelled;
    Font = dialog.selectedFont();
    return kDialogDone;
}

} // namespace zolt
