#include "shell/start/start_up.h"

#include "core/document.h"
#include "core/file.h"
#include "core/settings.h"
#include "platform/desktop.h"
#include "platform/fonts.h"
#include "platform/message_box.h"
#include "platform/program_folder.h"
#include "platform/text_pane.h"
#include "shell/base/active_pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/shared_values.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/tools/splash_frm.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <algorithm>
#include <cctype>

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

bool endsInExtension(const std::string &name, const std::string &extension) {
    const auto capital = [](char c) {
        return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    };
    const std::string ending = "." + extension;
    return name.size() >= ending.size() &&
           std::equal(ending.begin(), ending.end(), name.end() - static_cast<std::ptrdiff_t>(ending.size()),
                      [&](char a, char b) { return capital(a) == capital(b); });
}

void readSettingsOfThisRun() {
    shared::programFolder = programFolder();
    shared::settings = readSettings(shared::programFolder + "/ZOLT.ini", shared::programFolder);
    if (!areSound(shared::settings))
        shared::settings = defaultSettings(shared::programFolder);
}

void nameFileTypes() {
    shared::ExtensãoTexto = "zlt";
    shared::ExtensãoGráfico = "zlg";
    shared::IconeTexto = shared::programFolder + "/ZOLTText.ico";
    shared::IconeGráfico = shared::programFolder + "/ZOLTGraphic.ico";
    shared::FormatoTexto = "ZOLT Text Format";
    shared::FormatoGráfico = "ZOLT Graphic Format";
    shared::CaminhoPrograma = shared::programFolder + "/zolt";
}

EditTextFrm &showTextWindow() {
    MDIFrm &frame = *loaded<MDIFrm>();
    const bool fresh = !loaded<EditTextFrm>();
    EditTextFrm &window = load<EditTextFrm>(&frame);
    if (fresh)
        frame.adopt(&window);
    frame.show();
    window.showMaximized();
    takeFocus(window.activePane());
    return window;
}

/// Says why a file can't be opened and lets the user choose an edition instead.
void refuseFile(const std::string &name, const std::string &reason) {
    MDIFrm &frame = *loaded<MDIFrm>();
    showMessage(&frame,
                QStringLiteral("The file %1 can't be opened: %2.")
                    .arg(fromFileName(name), QString::fromLocal8Bit(reason.c_str())),
                QMessageBox::Warning);
    frame.MostrarQuestionFrm();
}

void openCommandLine() {
    const std::string name = namedFile();
    MDIFrm &frame = *loaded<MDIFrm>();
    frame.show();
    if (const FileContents file = readFile(name); !file.ok())
        return refuseFile(name, file.reason);
    if (endsInExtension(name, shared::ExtensãoTexto))
        return openNamedFile();
    shared::settings.DefltDir = folderOf(name);
    if (endsInExtension(name, shared::ExtensãoGráfico)) {
        sayGraphicalEditionIsMissing(&frame);
        return frame.MostrarQuestionFrm();
    }
    frame.MostrarMensagemFrm();
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
    MDIFrm &frame = load<MDIFrm>();
    nameFileTypes();
    if (chooses) {
        unload<SplashFrm>();
        frame.show();
        frame.MostrarQuestionFrm();
    } else {
        openCommandLine();
    }
    shared::settings.FrstTime = 0;
    return frame;
}

void openTextEdition() {
    showTextWindow();
}

void openNamedFile() {
    const std::string name = namedFile();
    const FileContents file = readFile(name);
    if (!file.ok())
        return refuseFile(name, file.reason);
    shared::TextoDeArranque = documentFromFile(file.bytes);
    EditTextFrm &window = showTextWindow();
    window.pane(1).setText(shared::TextoDeArranque);
    window.pane(2).setText(shared::TextoDeArranque);
    shared::TextoDeArranque.clear();
    commonDialog(DialogFrm::Document).FileName = name;
    window.setCaption(titleOf(name));
    window.documentBegins();
    shared::settings.DefltDir = folderOf(name);
}

void sayGraphicalEditionIsMissing(QWidget *owner) {
    showMessage(owner, QStringLiteral("The graphical edition isn't part of this version of the program."),
                QMessageBox::Information);
}

} // namespace zolt
