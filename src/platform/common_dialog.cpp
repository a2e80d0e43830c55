#include "platform/common_dialog.h"

#include "core/file.h"
#include "platform/colours.h"
#include "platform/owned_dialog.h"

#include <QColorDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFontDialog>
#include <QMimeDatabase>
#include <QPrintDialog>
#include <algorithm>

namespace zolt {

namespace {

/// A caption and its patterns.
struct FilterPair {
    QString caption;
    QStringList patterns;

    bool showsAll() const { return patterns.contains(u'*'); }
    /// As QFileDialog reads it.
    QString nameFilter() const { return QStringLiteral("%1 (%2)").arg(caption, patterns.join(QChar(u' '))); }
    /// The first pattern's extension without its point; empty if it shows all files.
    QString extension() const { return patterns.value(0).section(u'.', 1); }
};

/// The pairs of a Filter. Patterns that stand in a caption as well aren't shown twice.
QList<FilterPair> filterPairs(const QString &filter) {
    QList<FilterPair> pairs;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString caption = parts[i].trimmed();
        const qsizetype parenthesis = caption.lastIndexOf(u" (*");
        if (parenthesis >= 0)
            caption.truncate(parenthesis);
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        pairs << FilterPair{caption, patterns};
    }
    return pairs;
}

/// Kinds of files by their names alone. Qt's own provider reads from files whose name
/// says nothing, which stops the program at one that never answers.
class KindsByName : public QFileIconProvider {
public:
    QIcon icon(const QFileInfo &file) const override {
        return QFileIconProvider::icon(file.isDir() ? Folder : File);
    }
    QString type(const QFileInfo &file) const override {
        return QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension).comment();
    }
};

QString pathFromBytes(const std::string &path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

std::string bytesFromPath(const QString &path) {
    return QFile::encodeName(path).toStdString();
}

/// What a dialog stands before: a window that isn't shown yet can't own one.
QWidget *ownerFor(QWidget *asker) {
    while (asker && !asker->window()->isVisible() && asker->window()->parentWidget())
        asker = asker->window()->parentWidget();
    return asker;
}

} // namespace

CommonDialog::CommonDialog(const QString &name, QObject *parent)
    : QObject(parent), m_kinds(std::make_unique<KindsByName>()) {
    setObjectName(name);
}

CommonDialog::~CommonDialog() = default;

bool CommonDialog::run(QDialog &dialog) {
    dialog.setObjectName(objectName());
    const QPointer<QWidget> asker = dialog.parentWidget();
    const QPointer<QWidget> focus = asker ? asker->window()->focusWidget() : nullptr;
    const bool accepted = dialog.exec() == QDialog::Accepted;
    // Without a window manager nothing else brings the asking window back to the fore.
    if (asker)
        asker->window()->activateWindow();
    if (focus)
        focus->setFocus();
    return accepted;
}

std::string CommonDialog::FileTitle() const {
    return titleOf(FileName);
}

void CommonDialog::startInFolder(QFileDialog &dialog) const {
    const QString start = pathFromBytes(InitDir);
    const QString folder = QFileInfo(start).isDir() ? start : pathFromBytes(folderOf(InitDir));
    if (!folder.isEmpty() && QDir(folder).exists())
        dialog.setDirectory(folder);
}

int CommonDialog::showFileDialog(QFileDialog &dialog) {
    dialog.setIconProvider(m_kinds.get());
    QList<FilterPair> pairs = filterPairs(Filter);
    const auto chosen = static_cast<qsizetype>(FilterIndex) - 1;
    const qsizetype preselected = std::clamp<qsizetype>(chosen, 0, std::max<qsizetype>(pairs.size() - 1, 0));
    if (std::none_of(pairs.begin(), pairs.end(), [](const FilterPair &pair) { return pair.showsAll(); }))
        pairs << FilterPair{QStringLiteral("All files"), {QStringLiteral("*")}};
    QStringList filters;
    for (const FilterPair &pair : pairs)
        filters << pair.nameFilter();
    dialog.setNameFilters(filters);
    const auto follow = [&dialog, &pairs, &filters](const QString &filter) {
        dialog.setDefaultSuffix(pairs.value(filters.indexOf(filter)).extension());
    };
    if (Flags & kAddExtension) {
        connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
        follow(filters[preselected]);
    }
    dialog.selectNameFilter(filters[preselected]);

    startInFolder(dialog);
    if (!FileName.empty())
        dialog.selectFile(pathFromBytes(titleOf(FileName)));

    if (!run(dialog) || dialog.selectedFiles().isEmpty())
        return kDialogCancelled;
    FileName = bytesFromPath(dialog.selectedFiles().first());
    FilterIndex = static_cast<int>(std::max<qsizetype>(filters.indexOf(dialog.selectedNameFilter()), 0)) + 1;
    return kDialogDone;
}

int CommonDialog::ShowOpen(QWidget *asker) {
    const OwnedDialog<QFileDialog> dialog(ownerFor(asker), DialogTitle);
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(Flags & kFileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    return showFileDialog(*dialog);
}

int CommonDialog::ShowSave(QWidget *asker) {
    const OwnedDialog<QFileDialog> dialog(ownerFor(asker), DialogTitle);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setOption(QFileDialog::DontConfirmOverwrite, !(Flags & kOverwritePrompt));
    return showFileDialog(*dialog);
}

int CommonDialog::ShowFolder(QWidget *asker) {
    const OwnedDialog<QFileDialog> dialog(ownerFor(asker), DialogTitle);
    dialog->setIconProvider(m_kinds.get());
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    startInFolder(*dialog);
    if (!run(*dialog) || dialog->selectedFiles().isEmpty())
        return kDialogCancelled;
    FileName = bytesFromPath(dialog->selectedFiles().first());
    return kDialogDone;
}

int CommonDialog::ShowColor(QWidget *asker) {
    const OwnedDialog<QColorDialog> dialog(qtColour(Color, QPalette::WindowText), ownerFor(asker));
    if (!run(*dialog))
        return kDialogCancelled;
    Color = colourValue(dialog->selectedColor());
    return kDialogDone;
}

int CommonDialog::ShowFont(QWidget *asker) {
    const OwnedDialog<QFontDialog> dialog(Font, ownerFor(asker));
    if (!run(*dialog))
        return kDialogCancelled;
    Font = dialog->selectedFont();
    return kDialogDone;
}

int CommonDialog::ShowPrinter(QWidget *asker, QPrinter &printer, bool hasSelection) {
    const OwnedDialog<QPrintDialog> dialog(&printer, ownerFor(asker));
    dialog->setOptions(QPrintDialog::PrintToFile | QPrintDialog::PrintShowPageSize |
                       QPrintDialog::PrintCollateCopies);
    dialog->setOption(QPrintDialog::PrintSelection, hasSelection);
    // Qt's own dialog shows its ranges of pages whether they are an option or not.
    if (const auto *from = dialog->findChild<QWidget *>(QStringLiteral("from")))
        for (const char *part : {"printRange", "from", "label_3", "to", "pagesRadioButton", "pagesLineEdit"})
            if (auto *widget = from->parentWidget()->findChild<QWidget *>(QString::fromUtf8(part)))
                widget->hide();
    return run(*dialog) ? kDialogDone : kDialogCancelled;
}

} // namespace zolt
