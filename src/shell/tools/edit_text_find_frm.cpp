#include "shell/tools/edit_text_find_frm.h"

#include "platform/byte_line.h"
#include "platform/fonts.h"
#include "platform/message_box.h"
#include "platform/pane.h"
#include "shell/base/document_in_use.h"
#include "shell/base/long_work.h"
#include "shell/base/shared_values.h"
#include "shell/widgets/command_button.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>

namespace zolt {

namespace {

/// The keys that press a button of the window, by themselves or as a shortcut.
bool pressesButton(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space || key == Qt::Key_F3;
}

} // namespace

EditTextFindFrm::EditTextFindFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Find and replace"), BesideTheFrame, owner),
      Text1(new ByteLine),
      Text2(new ByteLine),
      Check1(new QCheckBox(QStringLiteral("Match Case"))),
      MensagemFimDaProcura(QStringLiteral("ZOLT finished searching the document")) {
    auto *grid = new QGridLayout(this);
    const auto addBox = [&](int row, ByteLine *box, const QString &caption) {
        box->setObjectName(QStringLiteral("Text%1").arg(row + 1));
        box->setFont(zoltFont(QStringLiteral("ZOLT"), 9.75));
        box->setMinimumWidth(240);
        auto *label = new QLabel(caption);
        label->setObjectName(QStringLiteral("Label%1").arg(row + 1));
        label->setBuddy(box);
        grid->addWidget(label, row, 0);
        grid->addWidget(box, row, 1);
    };
    addBox(0, Text1, QStringLiteral("&Find:"));
    addBox(1, Text2, QStringLiteral("&Replace:"));
    Check1->setObjectName(QStringLiteral("Check1"));
    grid->addWidget(Check1, 2, 1);
    connect(Check1, &QCheckBox::clicked, this, &EditTextFindFrm::takeMatchCase);

    QPushButton *find = newButton(this, "Command1", QStringLiteral("Find &next"), &EditTextFindFrm::findNext);
    int row = 0;
    for (QPushButton *button :
         {find, newButton(this, "Command3", QStringLiteral("&Replace"), &EditTextFindFrm::replace),
          newButton(this, "Command5", QStringLiteral("Replace &all"), &EditTextFindFrm::replaceAll),
          newButton(this, "Command4", QStringLiteral("&Stop"), &EditTextFindFrm::stop),
          newButton(this, "Command2", QStringLiteral("Close"), &QWidget::close)}) {
        button->setAutoDefault(false);
        grid->addWidget(button, row++, 2);
    }
    find->setDefault(true);
    grid->setColumnStretch(1, 1);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    for (auto *part : findChildren<QWidget *>())
        part->installEventFilter(this);

    Text1->setText(shared::lastSearch);
    DistinguirMaiúsculas = shared::lastSearchMatchesCase;
    Check1->setChecked(DistinguirMaiúsculas == 1);
}

void EditTextFindFrm::focusFindBox() {
    Text1->setFocus();
    Text1->selectAll();
}

bool EditTextFindFrm::hasText() const {
    return !Text1->text().isEmpty();
}

bool EditTextFindFrm::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::MouseButtonPress)
        m_byKey = false;
    else if (event->type() == QEvent::Shortcut)
        m_byKey = true;
    else if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress)
        m_byKey = pressesButton(static_cast<QKeyEvent *>(event)->key());
    return ToolFrm::eventFilter(watched, event);
}

void EditTextFindFrm::giveFocus(Pane &pane) {
    if (m_byKey && isActiveWindow())
        pane.takeFocus();
    else
        takeFocus(pane);
}

bool EditTextFindFrm::search(Pane &pane, const std::function<void(const Progress &)> &search) {
    PararProcura = 0;
    shared::lastSearch = Text1->Text();
    shared::lastSearchMatchesCase = DistinguirMaiúsculas;
    const int number = ++m_searches;
    bool stale = false;
    const QPointer<EditTextFindFrm> window(this);
    const QPointer<PaneEvents> there(&pane.events());
    const auto isStale = [&] { return stale || !window || !there || window->m_searches != number; };

    const auto watch = connect(there, &PaneEvents::Change, there, [&stale] { stale = true; });
    search(livelyProgress(
        [&](std::size_t position, std::size_t /*total*/) {
            if (!isStale())
                pane.setSelStart(static_cast<qsizetype>(position));
        },
        [&] { return isStale() || window->PararProcura == 1; }));
    disconnect(watch);
    return !isStale();
}

void EditTextFindFrm::sayEnd() {
    const QPointer<QWidget> active = QApplication::activeWindow();
    showMessage(this, MensagemFimDaProcura);
    if (active)
        active->activateWindow();
}

void EditTextFindFrm::findNext() {
    Pane *pane = activePane();
    const std::string find = Text1->Text();
    ScanResult found;
    const auto scanPane = [&](const Progress &progress) {
        found = scan(pane->reader(), static_cast<std::size_t>(pane->length()), options(find),
                     static_cast<std::size_t>(shared::PosiçãoCursor), progress);
    };
    if (!pane || !search(*pane, scanPane))
        return;
    if (found.outcome == ScanResult::NotFound) {
        if (found.position > 0)
            pane->setSelStart(static_cast<qsizetype>(found.position));
        return sayEnd();
    }
    giveFocus(*pane);
    pane->setSelStart(static_cast<qsizetype>(found.position) - 1);
    pane->setSelLength(static_cast<qsizetype>(find.size()));
    shared::PosiçãoCursor = static_cast<std::int32_t>(pane->SelStart() + static_cast<qsizetype>(find.size()));
}

void EditTextFindFrm::replace() {
    Pane *pane = activePane();
    if (!pane)
        return;
    const std::string find = Text1->Text();
    const std::string replacement = Text2->Text();
    const qsizetype start = shared::PosiçãoCursor - static_cast<qsizetype>(find.size());
    giveFocus(*pane);
    if (start < 0)
        return;
    if (pane->SelText() == find)
        pane->setSelText(replacement);
    pane->setSelStart(start);
    pane->setSelLength(static_cast<qsizetype>(replacement.size()));
    // Not lowered by what was found: the search goes on that far behind.
    shared::PosiçãoCursor += static_cast<std::int32_t>(replacement.size());
    findNext();
}

void EditTextFindFrm::replaceAll() {
    Pane *pane = activePane();
    const std::string find = Text1->Text();
    const std::string replacement = Text2->Text();
    if (!pane || find.empty() || replacement.empty())
        return;
    shared::PosiçãoCursor = 0;
    const qsizetype start = pane->SelStart();
    const qsizetype length = pane->SelLength();
    ReplaceAllResult result;
    const auto replaceInPane = [&](const Progress &progress) {
        result = zolt::replaceAll(pane->Text(), options(find), replacement, progress);
    };
    if (!search(*pane, replaceInPane))
        return;
    if (result.replacements > 0) {
        giveFocus(*pane);
        // What an undo is to bring back, not where the caret has walked.
        pane->setSelStart(start);
        pane->setSelLength(length);
        pane->replaceEach(result.offsets, find.size(), replacement);
    }
    pane->setSelStart(static_cast<qsizetype>(result.caret));
    shared::PosiçãoCursor = static_cast<std::int32_t>(result.posiçãoCursor);
    if (result.outcome == ReplaceAllResult::Finished)
        sayEnd();
}

void EditTextFindFrm::stop() {
    PararProcura = 1;
}
void EditTextFindFrm::takeMatchCase() {
    DistinguirMaiúsculas = Check1->isChecked() ? 1 : 0;
}
void EditTextFindFrm::closing() {
    PararProcura = 1;
}

} // namespace zolt
