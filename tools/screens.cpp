// Opens the program's windows in a typical state and saves a picture of each:
//
//   screens FOLDER EXAMPLES
//
// The pictures are PNG files of the windows' names. QT_SCALE_FACTOR says at what
// scale they are drawn.

#include "platform/text_pane.h"
#include "shell/base/shared_values.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/document/graphic/edit_graph_fullscreen_frm.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/document/text/edit_text_fullscreen_frm.h"
#include "shell/exports/edit_text_export_pdf_frm.h"
#include "shell/exports/edit_text_guardar_hp_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/pictures/edit_graph_insert_grob_frm.h"
#include "shell/pictures/edit_graph_insert_image_frm.h"
#include "shell/pictures/edit_graph_insert_velda_frm.h"
#include "shell/pictures/edit_text_conv_img_frm.h"
#include "shell/pictures/edit_text_insert_grob_frm.h"
#include "shell/pictures/edit_text_insert_image_frm.h"
#include "shell/pictures/edit_text_insert_velda_frm.h"
#include "shell/preview/edit_graph_preview_frm.h"
#include "shell/preview/edit_text_preview_frm.h"
#include "shell/preview/edit_text_preview_normal_frm.h"
#include "shell/preview/edit_text_preview_normal_menu_frm.h"
#include "shell/preview/live_preview.h"
#include "shell/preview/wait_frm.h"
#include "shell/start/start_up.h"
#include "shell/symbols/symbol_frm.h"
#include "shell/tools/about_frm.h"
#include "shell/tools/caracter_table_frm.h"
#include "shell/tools/caracter_toolbar_frm.h"
#include "shell/tools/date_time_frm.h"
#include "shell/tools/edit_page_setup_frm.h"
#include "shell/tools/edit_text_find_frm.h"
#include "shell/tools/edit_text_options_frm.h"
#include "shell/tools/edit_text_word_count_frm.h"
#include "shell/tools/file_ass_frm.h"
#include "shell/tools/mensagem_frm.h"
#include "shell/tools/question_frm.h"
#include "shell/tools/splash_frm.h"

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QPalette>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <cstring>
#include <functional>

namespace {

using namespace zolt;

/// One picture: how its window comes up.
struct Scene {
    const char *name;
    std::function<QWidget *()> show;
};

template <class Window> QWidget *open(const char *operation) {
    QMetaObject::invokeMethod(loaded<MDIFrm>(), operation, Qt::DirectConnection);
    return loaded<Window>();
}

/// Shows the quick bar as CharTool says.
QWidget *showBar(std::int16_t charTool) {
    shared::settings.CharTool = charTool;
    loaded<MDIFrm>()->applyCharTool();
    return loaded<CaracterToolbarFrm>();
}

/// What `window` looks like while `work` goes on; then it closes, which ends the work.
QWidget *seenDuring(const std::function<void()> &work, const std::function<QWidget *()> &window) {
    auto *picture = new QLabel;
    picture->setAttribute(Qt::WA_DeleteOnClose);
    QTimer::singleShot(0, picture, [&] {
        QWidget *seen = window();
        picture->setPixmap(seen->grab());
        seen->close();
    });
    work();
    picture->adjustSize();
    return picture;
}

/// The frame with the live preview in a place, or without it.
QWidget *showLivePreview(bool on, Qt::DockWidgetArea area = Qt::RightDockWidgetArea) {
    MDIFrm *frame = loaded<MDIFrm>();
    auto *dock = frame->findChild<QDockWidget *>(QStringLiteral("LivePreviewDock"));
    if (dock->isHidden() == on)
        frame->MnuVerLivePreview();
    frame->addDockWidget(area, dock);
    const auto *preview = frame->findChild<LivePreview *>();
    while (on && !preview->isUpToDate())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return frame;
}

const QList<Scene> &textScenes() {
    static const QList<Scene> all{
        {"MDIFrm", [] { return loaded<MDIFrm>(); }},
        {"MnuPopUp",
         [] {
             QMenu *menu = loaded<EditTextFrm>()->popUp();
             menu->popup(QPoint(40, 40));
             return menu;
         }},
        {"EditTextGuardarHPFrm",
         [] {
             loaded<EditTextFrm>()->TesteDeIntegridade();
             return loaded<EditTextGuardarHPFrm>();
         }},
        {"EditTextPreviewFrm",
         [] {
             loaded<EditTextFrm>()->MnuVerPrévisualizartudoEstiloHP48();
             return loaded<EditTextPreviewFrm>();
         }},
        {"EditTextPreviewNormalFrm",
         [] {
             loaded<EditTextFrm>()->MnuVerPrévisualizartudoNormal();
             return loaded<EditTextPreviewNormalFrm>();
         }},
        {"EditTextPreviewNormalMenuFrm",
         []() -> QWidget * {
             loaded<EditTextFrm>()->MnuVerPrévisualizartudoComquebrasdelinha();
             loaded<EditTextPreviewNormalFrm>()->MenuPreview();
             return loaded<EditTextPreviewNormalMenuFrm>();
         }},
        {"EditTextInsertImageFrm",
         []() -> QWidget * {
             load<EditTextInsertImageFrm>(loaded<MDIFrm>()).show();
             loaded<EditTextInsertImageFrm>()->preview();
             return loaded<EditTextInsertImageFrm>();
         }},
        {"EditTextInsertGrobFrm",
         []() -> QWidget * {
             load<EditTextInsertGrobFrm>(loaded<MDIFrm>()).show();
             return loaded<EditTextInsertGrobFrm>();
         }},
        {"EditTextInsertVeldaFrm",
         []() -> QWidget * {
             load<EditTextInsertVeldaFrm>(loaded<MDIFrm>()).show();
             return loaded<EditTextInsertVeldaFrm>();
         }},
        {"EditTextFullscreenFrm",
         []() -> QWidget * {
             loaded<EditTextFrm>()->MnuVerEcrainteiro();
             return loaded<EditTextFullscreenFrm>();
         }},
        {"EditTextFullscreenLeaveFrm",
         []() -> QWidget * {
             loaded<EditTextFrm>()->MnuVerEcrainteiro();
             return loaded<EditTextFullscreenLeaveFrm>();
         }},
        {"EditTextConvImgFrm", [] { return open<EditTextConvImgFrm>("MostrarEditTextConvImgFrm"); }},
        {"EditPageSetupFrm", [] { return open<EditPageSetupFrm>("MostrarEditPageSetupFrm"); }},
        {"EditTextFindFrm", [] { return open<EditTextFindFrm>("MostrarEditTextFindFrm"); }},
        {"DateTimeFrm", [] { return open<DateTimeFrm>("MostrarDateTimeFrm"); }},
        {"EditTextWordCountFrm", [] { return open<EditTextWordCountFrm>("MostrarEditTextWordCountFrm"); }},
        {"EditTextOptionsFrm", [] { return open<EditTextOptionsFrm>("MostrarEditTextOptionsFrm"); }},
        {"FileAssFrm", [] { return open<FileAssFrm>("MostrarFileAssFrm"); }},
        {"EditTextExportPDFFrm", [] { return open<EditTextExportPDFFrm>("MostrarEditTextExportPDFFrm"); }},
        {"SymbolFrmList", [] { return open<SymbolFrm>("MostrarSymbolFrm"); }},
        {"SymbolFrmEdition",
         [] {
             QWidget *window = open<SymbolFrm>("MostrarSymbolFrm");
             loaded<SymbolFrm>()->editSymbol();
             return window;
         }},
        {"CaracterTableFrm", [] { return open<CaracterTableFrm>("MostrarCaracterTableFrm"); }},
        {"CaracterToolbarFrmTall", [] { return showBar(1); }},
        {"CaracterToolbarFrmWide", [] { return showBar(2); }},
        {"MDIFrmBarAtTheRight",
         [] {
             showBar(4);
             return loaded<MDIFrm>();
         }},
        {"RecoverFrm",
         []() -> QWidget * {
             KeptDocument text;
             text.caption = "notes.zlt";
             text.time = 1'790'000'000;
             text.bytes = "0123456789";
             loaded<MDIFrm>()->showKept(RecoverFrm::ThrownAway, {{{}, text}});
             return loaded<RecoverFrm>();
         }},
        {"AboutFrm", [] { return open<AboutFrm>("MostrarAboutFrm"); }},
        {"QuestionFrm", [] { return open<QuestionFrm>("MostrarQuestionFrm"); }},
        {"MensagemFrm", [] { return open<MensagemFrm>("MostrarMensagemFrm"); }},
        {"SplashFrm",
         []() -> QWidget * {
             load<SplashFrm>().show();
             return loaded<SplashFrm>();
         }},
        {"MDIFrmLivePreview", [] { return showLivePreview(true); }},
        {"MDIFrmLivePreviewBelow", [] { return showLivePreview(true, Qt::BottomDockWidgetArea); }},
        {"MDIFrmView",
         []() -> QWidget * {
             showLivePreview(false);
             for (QMenu *menu : loaded<EditTextFrm>()->menus())
                 if (menu->objectName() == QStringLiteral("MnuVer")) {
                     menu->popup(QPoint(40, 40));
                     return menu;
                 }
             return nullptr;
         }},
        // Closed before it has come to an end it cancels, so that no preview follows.
        {"WaitFrm", [] { return open<WaitFrm>("MostrarWaitFrm"); }},
    };
    return all;
}

const QList<Scene> &graphScenes() {
    static const QList<Scene> all{
        {"MDIFrmGraphical", [] { return loaded<MDIFrm>(); }},
        {"MnuPopUpGraphical",
         [] {
             QMenu *menu = loaded<EditGraphFrm>()->popUp();
             menu->popup(QPoint(40, 40));
             return menu;
         }},
        {"EditGraphInsertImageFrm",
         []() -> QWidget * {
             load<EditGraphInsertImageFrm>(loaded<MDIFrm>()).show();
             return loaded<EditGraphInsertImageFrm>();
         }},
        {"EditGraphInsertGrobFrm",
         []() -> QWidget * {
             load<EditGraphInsertGrobFrm>(loaded<MDIFrm>()).show();
             return loaded<EditGraphInsertGrobFrm>();
         }},
        {"EditGraphInsertVeldaFrm",
         []() -> QWidget * {
             load<EditGraphInsertVeldaFrm>(loaded<MDIFrm>()).show();
             return loaded<EditGraphInsertVeldaFrm>();
         }},
        {"EditGraphPreviewFrm",
         []() -> QWidget * {
             loaded<EditGraphFrm>()->MnuVerPrévisualizar();
             return loaded<EditGraphPreviewFrm>();
         }},
        {"EditGraphPreviewFrmProgress",
         [] {
             loaded<EditGraphFrm>()->MnuVerPrévisualizar();
             return seenDuring([] { loaded<EditGraphPreviewFrm>()->compile(); },
                               [] { return loaded<EditGraphPreviewFrm>(); });
         }},
        {"EditGraphPreviewFrmSource",
         []() -> QWidget * {
             loaded<EditGraphFrm>()->MnuVerPrévisualizar();
             loaded<EditGraphPreviewFrm>()->compile();
             return loaded<EditGraphPreviewFrm>();
         }},
        {"SendQuestion",
         [] {
             return seenDuring([] { loaded<EditGraphFrm>()->MnuFicheiroEnviarparaEdicaotextual(); },
                               &QApplication::activeModalWidget);
         }},
        {"MDIFrmGraphicalLivePreview", [] { return showLivePreview(true); }},
        {"EditGraphFullscreenFrm",
         []() -> QWidget * {
             loaded<EditGraphFrm>()->MnuVerEcrainteiro();
             return loaded<EditGraphFullscreenFrm>();
         }},
    };
    return all;
}

/// The colours of a dark desktop.
QPalette darkPalette() {
    QPalette dark(QColor(45, 45, 45));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::black);
    return dark;
}

bool save(const Scene &scene, const QString &folder) {
    QWidget *window = scene.show();
    if (!window)
        return false;
    QCoreApplication::processEvents();
    const bool saved =
        window->grab().save(folder + u'/' + QString::fromUtf8(scene.name) + QStringLiteral(".png"));
    if (window != loaded<MDIFrm>())
        window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    return saved;
}

} // namespace

int main(int argc, char **argv) {
    const bool dark = argc == 4 && std::strcmp(argv[3], "dark") == 0;
    if (argc != 3 && !dark) {
        std::fputs("usage: screens FOLDER EXAMPLES [dark]\n", stderr);
        return 2;
    }
    const QTemporaryDir home;
    for (const char *folder : {"ZOLT_HOME", "XDG_STATE_HOME"})
        qputenv(folder, home.path().toLocal8Bit());
    prepareApplication();
    QApplication application(argc, argv);
    if (dark)
        QApplication::setPalette(darkPalette());
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(folder);
    int failed = 0;
    for (const auto &[example, scenes] :
         {std::pair{"/welcome.zlt", &textScenes}, std::pair{"/welcome.zlg", &graphScenes}}) {
        startProgram(argv[2] + std::string(example));
        // With a file on the command line, the PDF window asks for a name by itself.
        shared::commandLine.clear();
        for (const Scene &scene : scenes()) {
            if (!save(scene, folder)) {
                std::fprintf(stderr, "screens: no picture of %s\n", scene.name);
                ++failed;
            }
        }
        shared::SemPerguntaDeSaída = 1;
        loaded<MDIFrm>()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return failed ? 1 : 0;
}
