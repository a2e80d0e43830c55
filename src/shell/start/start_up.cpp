#include "shell/start/start_up.h"

#include "core/file.h"
#include "core/path.h"
#include "core/settings.h"
#include "platform/desktop.h"
#include "platform/fonts.h"
#include "platform/pane.h"
#include "platform/program_folder.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/document_in_use.h"
#include "shell/base/document_keeper.h"
#include "shell/base/more_settings.h"
#include "shell/base/shared_values.h"
#include "shell/document/graphic/edit_graph_frm_tables.h"
#include "shell/document/text/edit_text_frm_tables.h"
#include "shell/frame/mdi_frm.h"
#include "shell/start/document_windows.h"
#include "shell/start/dropped_queue.h"
#include "shell/start/open_document.h"
#include "shell/start/recovery.h"
#include "shell/start/roads.h"
#include "shell/tools/file_ass_frm.h"
#include "shell/tools/splash_frm.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <utility>

/// Pictures in a library are not there until they are asked for.
static void loadPictures() {
    Q_INIT_RESOURCE(icons);
}

namespace zolt {

namespace {

/// The command line's name, whole from the root, without the double quotes that
/// may stand around it.
std::string namedFile() {
    std::string name = shared::commandLine;
    if (name.size() >= 2 && name.back() == '"')
        name = name.substr(1, name.size() - 2);
    return QFile::encodeName(QDir::current().absoluteFilePath(fromFileName(name))).toStdString();
}

void readSettingsOfThisRun() {
    shared::programFolder = programFolder();
    shared::settings = readSettings(shared::programFolder + "/ZOLT.ini", shared::programFolder);
    if (!areSound(shared::settings))
        shared::settings = defaultSettings(shared::programFolder);
    loadExtraSettings();
}

void nameFileTypes() {
    shared::ExtensãoTexto = "zlt";
    shared::ExtensãoGráfico = "zlg";
    shared::IconeTexto = shared::programFolder + "/ZOLTText.ico";
    shared::IconeGráfico = shared::programFolder + "/ZOLTGraphic.ico";
    shared::FormatoTexto = "ZOLT Text Format";
    shared::FormatoGráfico = "ZOLT Graphic Format";
    shared::CaminhoPrograma = fileNameBytes(QCoreApplication::applicationFilePath());
}

/// From here on, and until the frame closes, no text is lost.
void keepDocuments() {
    keepDocumentsIn(keptDocumentsFolder());
    documentKeeper()->setKeepsThrownAway(extraSettings().keepsThrownAway);
    keepDocumentAtSessionEnd();
}

/// Says why a file can't be opened and lets the user choose an edition instead.
void refuseFile(const std::string &name, const std::string &reason) {
    sayNotOpened(name, reason);
    loaded<MDIFrm>()->MostrarQuestionFrm();
}

/// Opens the command line's file, which has been read, in an edition.
void openFile(const std::string &name, FileContents file, int edition) {
    const std::string reason = file.ok() ? editionOf(edition).refusal(file.bytes) : file.reason;
    if (!reason.empty())
        return refuseFile(name, reason);
    shared::TextoDeArranque = std::move(file.bytes);
    openEdition(edition).showFile(name, shared::TextoDeArranque, DocumentFrm::BothPanes);
    shared::TextoDeArranque.clear();
}

/// Opens the command line's file in the edition that its ending tells, else in the one
/// that the user chooses.
void openCommandLine() {
    const std::string name = namedFile();
    loaded<MDIFrm>()->show();
    FileContents file = readFile(name);
    if (!file.ok())
        return refuseFile(name, file.reason);
    shared::settings.DefltDir = folderOf(name);
    for (const auto &[extension, edition] :
         {std::pair{&shared::ExtensãoTexto, kTextual}, std::pair{&shared::ExtensãoGráfico, kGraphical}})
        if (extensionOf(name) == *extension)
            return openFile(name, std::move(file), edition);
    askForEditionOf(name);
}

} // namespace

void prepareApplication() {
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::Round);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QCoreApplication::setApplicationName(QStringLiteral("zolt"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZOLT_VERSION));
    QGuiApplication::setApplicationDisplayName(QString());
    QGuiApplication::setDesktopFileName(QStringLiteral("zolt"));
}

MDIFrm &startProgram(const std::string &commandLine) {
    shared::reset();
    shared::commandLine = commandLine;
    QApplication::setQuitOnLastWindowClosed(false);
    loadPictures();
    loadFonts(installedDataFolder() + "/fonts");

    const bool chooses = commandLine.empty();
    if (chooses) {
        SplashFrm &splash = load<SplashFrm>();
        splash.show();
        splash.repaint();
    }
    readSettingsOfThisRun();
    keepDocuments();
    MDIFrm &frame = load<MDIFrm>();
    frame.fillToolbar(2, textStandardToolbarTable());
    frame.fillToolbar(3, textFormatToolbarTable());
    frame.fillToolbar(4, graphStandardToolbarTable());
    frame.fillToolbar(5, graphFormatToolbarTable());
    QObject::connect(&frame, &MDIFrm::editionChosen, &frame, [](int edition) { openEdition(edition); });
    QObject::connect(&frame, &MDIFrm::roadChosen, &frame, takeRoad);
    QObject::connect(&frame, &MDIFrm::keptDocumentChosen, &frame, giveBack);
    QObject::connect(&frame, &MDIFrm::recentFileChosen, &frame, openRecentFile);
    QObject::connect(&frame, &MDIFrm::filesDropped, new DroppedQueue(&frame), &DroppedQueue::take);
    QObject::connect(&frame, &MDIFrm::ended, &frame, [] { keepDocumentsIn({}); });
    QObject::connect(&frame, &MDIFrm::editionOfFileChosen, &frame, [](int edition) {
        // The file may have gone while the question stood.
        const std::string name = fileToOpen();
        openFile(name, readFile(name), edition);
    });
    nameFileTypes();
    // The settings file asks for it once, as it was installed. A failure is silent.
    if (shared::settings.FrstTime == 1) {
        associateTextDocuments();
        associateGraphicDocuments();
    }
    if (chooses) {
        unload<SplashFrm>();
        frame.show();
        if (!offerWhatACrashLeft())
            frame.MostrarQuestionFrm();
    } else {
        openCommandLine();
        offerWhatACrashLeft();
    }
    shared::settings.FrstTime = 0;
    return frame;
}

} // namespace zolt
