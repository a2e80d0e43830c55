// What must hold after each step of a random walk, and what a document must be after it was
// undone, saved, cut and pasted, kept.
//
// ZOLT_WALK_STEPS and ZOLT_WALK_SEED make the walk long, or another one;
// what comes in between depends on the clock and differs from run to run.
// ZOLT_WALK_TRACE=1 names each step on the error output before it is taken.

#include "core/file.h"
#include "graphic/rtf_reader.h"
#include "platform/rich_text_box.h"
#include "shell/base/document_keeper.h"
#include "shell/random_walk.h"

#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <filesystem>

namespace zolt::test {

namespace {

unsigned numberFrom(const char *variable, unsigned otherwise) {
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariable(variable).toUInt() : otherwise;
}

} // namespace

QTextDocument *RandomWalk::historyOf(Pane &pane) {
    if (auto *plain = qobject_cast<QPlainTextEdit *>(&pane.control()))
        return plain->document();
    return qobject_cast<QTextEdit *>(&pane.control())->document();
}

Contents RandomWalk::contents(Pane &pane) {
    const auto *rich = qobject_cast<RichTextBox *>(&pane.control());
    return {pane.Text(), rich ? rich->richText() : RichText{}};
}

void RandomWalk::useDocument() {
    constexpr void (RandomWalk::*kUses[])() = {
        &RandomWalk::undoAndRedoAll,          &RandomWalk::saveAndOpen, &RandomWalk::wrapAndUnwrap,
        &RandomWalk::enterAndLeaveFullScreen, &RandomWalk::cutAndPaste, &RandomWalk::keep};
    if (document() && isAtHand(loaded<MDIFrm>()) && pane().length() < 2 * kLongDocument)
        (this->*kUses[random(std::size(kUses))])();
}

void RandomWalk::undoAndRedoAll() {
    note("undo all, redo all");
    const Contents last = contents();
    int steps = 0;
    for (; historyOf(pane())->isUndoAvailable(); ++steps)
        pane().undo();
    const Contents first = contents();
    for (int i = 0; i < steps; ++i)
        pane().redo();
    EXPECT_TRUE(contents() == last) << "redone " << steps << " steps";
    for (int i = 0; i < steps; ++i)
        pane().undo();
    EXPECT_TRUE(contents() == first) << "undone " << steps << " steps";
    for (int i = once(2) ? 0 : steps; i > 0; --i)
        pane().redo();
}

void RandomWalk::saveAndOpen() {
    note("save, open");
    const Contents saved = contents();
    m_forcedPath = m_folder.filePath(QStringLiteral("walk"));
    call(document(), "FicheiroGuardarComo");
    EXPECT_FALSE(document()->wouldAsk());
    call(document(), "FicheiroAbrir");
    m_forcedPath.clear();
    EXPECT_TRUE(contents() == saved);
    EXPECT_EQ(document()->caption(), QStringLiteral("walk"));
}

void RandomWalk::wrapAndUnwrap() {
    note("switch the word wrap");
    const Contents before = contents();
    const qsizetype start = pane().SelStart(), end = pane().selEnd();
    call(document(), "EditarTranslinearpalavras");
    EXPECT_TRUE(contents() == before);
    EXPECT_EQ(std::pair(pane().SelStart(), pane().selEnd()), std::pair(start, end));
}

void RandomWalk::enterAndLeaveFullScreen() {
    note("enter and leave the full screen");
    const Contents before = contents();
    const bool asked = document()->wouldAsk();
    const qsizetype start = pane().SelStart(), end = pane().selEnd();
    call(document(), "MnuVerEcrainteiro");
    ASSERT_NE(fullScreen(), nullptr);
    fullScreen()->close();
    EXPECT_TRUE(contents() == before);
    EXPECT_EQ(document()->wouldAsk(), asked);
    EXPECT_EQ(std::pair(pane().SelStart(), pane().selEnd()), std::pair(start, end));
}

void RandomWalk::cutAndPaste() {
    note("cut, paste");
    const auto place = [this] { return static_cast<qsizetype>(random(std::size_t(pane().length()) + 1)); };
    pane().setSelStart(place());
    pane().setSelLength(place());
    const std::string text = pane().Text();
    const auto start = std::size_t(pane().SelStart()), end = std::size_t(pane().selEnd());
    if (start == end)
        return;
    call(document(), "EditarCortar");
    EXPECT_EQ(pane().Text(), text.substr(0, start) + text.substr(end));
    call(document(), "EditarColar");
    EXPECT_EQ(pane().Text(), text);
    EXPECT_EQ(std::size_t(pane().SelStart()), end);
}

void RandomWalk::keep() {
    note("keep");
    if (!document()->wouldAsk() || !documentKeeper()->keepNow())
        return;
    int found = 0;
    for (const auto &file : std::filesystem::recursive_directory_iterator(path("state/zolt/running")))
        if (file.path().filename() == "document") {
            const auto kept = readKeptFile(readFile(file.path()).bytes);
            ASSERT_TRUE(kept && !kept->isDamaged);
            ++found;
            EXPECT_TRUE(kept->edition == 1 ? kept->bytes == pane().Text()
                                           : richTextFromRtf(kept->bytes) == contents().rich);
        }
    EXPECT_EQ(found, 1);
}

void RandomWalk::checkDocument(DocumentFrm &document) {
    const Pane &pane = document.activePane();
    const std::string text = pane.Text();
    const qsizetype start = pane.SelStart(), end = pane.selEnd();
    ASSERT_EQ(pane.length(), static_cast<qsizetype>(text.size()));
    ASSERT_TRUE(0 <= start && start <= end && end <= pane.length()) << start << " to " << end;
    EXPECT_EQ(pane.SelText(), text.substr(std::size_t(start), std::size_t(end - start)));
    EXPECT_EQ(control<QLabel>(&document, "Panel3")->text(), QString::number(pane.length()));
    EXPECT_EQ(loaded<MDIFrm>()->windowTitle().startsWith(u'*'), document.wouldAsk());
}

void RandomWalk::check() {
    MDIFrm *frame = loaded<MDIFrm>();
    if (!frame)
        return;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(areSound(shared::settings));
    const QList<QWidget *> standing = windows();
    EXPECT_TRUE(isAtHand(frame) || standing.size() > standing.count(frame)) << "nothing to go on with";
    QList<QMdiSubWindow *> documents;
    for (QMdiSubWindow *child : frame->findChild<QMdiArea *>()->subWindowList())
        if (!child->property(detail::kClosed).toBool())
            documents << child;
    ASSERT_LE(documents.size(), 1);
    ASSERT_EQ(documents.value(0), static_cast<QMdiSubWindow *>(document()));
    if (document())
        checkDocument(*document());
}

void RandomWalk::walk(unsigned seed, unsigned steps) {
    m_random.seed(seed);
    watch();
    for (unsigned i = 0; i < steps && !HasFailure(); ++i) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(i));
        m_stepping = true;
        loaded<MDIFrm>() ? step() : begin();
        QCoreApplication::processEvents();
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
        m_stepping = false;
        deleteClosed();
        check();
    }
    EXPECT_FALSE(HasFailure()) << "the last steps: " << trace();
}

TEST_F(RandomWalk, KeepsWhatMustAlwaysHold) {
    const unsigned seed = numberFrom("ZOLT_WALK_SEED", 1);
    walk(seed, numberFrom("ZOLT_WALK_STEPS", 1500));
}

} // namespace zolt::test
