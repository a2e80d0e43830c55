#include "platform/printer.h"

#include "core/file.h"
#include "platform/rich_layout.h"
#include "platform/rich_text_document.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrinter>
#include <QScreen>
#include <QTemporaryFile>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace zolt {

namespace {

constexpr int kTwipsAnInch = 1440;
constexpr double kMetresAnInch = 0.0254;

/// What lines are laid out for: a dot is a twip, so that they break alike on all printers.
QImage twipDevice() {
    QImage device(1, 1, QImage::Format_RGB32);
    device.setDotsPerMeterX(qRound(kTwipsAnInch / kMetresAnInch));
    device.setDotsPerMeterY(qRound(kTwipsAnInch / kMetresAnInch));
    return device;
}

/// What the margins leave of a sheet, in twips.
QRect roomOnSheet(const QPagedPaintDevice &device, const PageMargins &margins) {
    const auto twips = [](int dots, int dotsAnInch) {
        return static_cast<int>(std::int64_t{dots} * kTwipsAnInch / std::max(dotsAnInch, 1));
    };
    return QRect(0, 0, twips(device.width(), device.logicalDpiX()),
                 twips(device.height(), device.logicalDpiY()))
        .adjusted(std::max(margins.left, 0), std::max(margins.top, 0), -std::max(margins.right, 0),
                  -std::max(margins.bottom, 0));
}

QTextOption wrapping() {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    // Half an inch as in RTF; Qt takes it in the screen's dots.
    option.setTabStopDistance(QGuiApplication::primaryScreen()->logicalDotsPerInchY() / 2);
    return option;
}

/// Puts lines below each other, from page to page.
class Pages {
public:
    Pages(QPagedPaintDevice &device, QRect room) : m_device(device), m_room(room), m_y(room.top()) {
        if (!m_painter.begin(&device))
            return;
        m_painter.scale(device.logicalDpiX() / double{kTwipsAnInch},
                        device.logicalDpiY() / double{kTwipsAnInch});
        m_painter.setRenderHint(QPainter::LosslessImageRendering);
        m_painter.setPen(Qt::black);
    }

    bool began() const { return m_painter.isActive(); }
    /// False if the device has no further page.
    bool put(QTextLine line) {
        line.setLeadingIncluded(true);
        line.setLineWidth(m_room.width());
        line.setPosition({0, 0});
        const int height = static_cast<int>(std::ceil(line.height()));
        if (m_y > m_room.top() && m_y + height > m_room.top() + m_room.height()) {
            if (!m_device.newPage())
                return false;
            m_y = m_room.top();
        }
        // A line higher than the page is cut off there.
        const bool isCut = height > m_room.height();
        if (isCut) {
            m_painter.save();
            m_painter.setClipRect(m_room);
        }
        line.draw(&m_painter, QPointF(m_room.left(), m_y));
        if (isCut)
            m_painter.restore();
        m_y += height;
        return true;
    }

private:
    QPainter m_painter;
    QPagedPaintDevice &m_device;
    QRect m_room;
    int m_y;
};

/// Each line is drawn as soon as it is filled, so that a paragraph's shapes are needed once.
PrintResult putParagraph(Pages &pages, QTextBlock block, const QTextOption &option,
                         const std::function<bool()> &mayGoOn) {
    PrintResult result = PrintResult::Printed;
    QTextLayout &layout = *block.layout();
    layout.setTextOption(RichLayout::lineOption(block, option));
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        if (!pages.put(line))
            result = PrintResult::Failed;
        else if (!mayGoOn())
            result = PrintResult::Stopped;
        if (result != PrintResult::Printed)
            break;
    }
    layout.endLayout();
    block.clearLayout();
    return result;
}

/// Nothing stands behind a line end at the text's end: no page begins for it.
bool isEmptyEnd(const QTextBlock &block) {
    return !block.next().isValid() && block.length() <= 1;
}

} // namespace

PrintResult PrintRTF(const RichText &text, const PageMargins &margins, QPagedPaintDevice &device,
                     const Progress &progress) {
    QPageLayout sheet = device.pageLayout();
    sheet.setMode(QPageLayout::FullPageMode);
    device.setPageLayout(sheet);
    const QRect room = roomOnSheet(device, margins);
    if (room.isEmpty())
        return PrintResult::NoRoom;

    const std::size_t count = text.paragraphs.size();
    QImage twips = twipDevice();
    const auto document = RichTextDocument::make(
        text, [&](std::size_t step, std::size_t) { return goOn(progress, step, 2 * count); });
    if (!document)
        return PrintResult::Stopped;
    document->setPaper(twips, room.size());

    Pages pages(device, room);
    if (!pages.began())
        return PrintResult::Failed;
    const QTextOption option = wrapping();
    std::size_t done = count;
    for (QTextBlock block = document->begin(); block.isValid() && !isEmptyEnd(block); block = block.next()) {
        const PrintResult result =
            putParagraph(pages, block, option, [&] { return goOn(progress, done, 2 * count); });
        if (result != PrintResult::Printed)
            return result;
        ++done;
    }
    return PrintResult::Printed;
}

namespace {

PrintResult printOnPaper(QPrinter &printer, const RichText &text, const PageMargins &margins,
                         const Progress &progress) {
    printer.setFullPage(true);
    const PrintResult result = PrintRTF(text, margins, printer, progress);
    if (result == PrintResult::Stopped)
        printer.abort();
    const bool failed = result == PrintResult::Printed && printer.printerState() == QPrinter::Error;
    return failed ? PrintResult::Failed : result;
}

/// The pages gather in a temporary file, which may turn out to be cut off for want of room.
PrintOutcome printIntoFile(QPrinter &printer, const RichText &text, const PageMargins &margins,
                           const Progress &progress) {
    const QString path = printer.outputFileName();
    QTemporaryFile pages(QDir::tempPath() + QStringLiteral("/XXXXXX.pdf"));
    if (!pages.open())
        return {PrintResult::Failed, pages.errorString().toStdString()};
    printer.setOutputFileName(pages.fileName());
    const PrintResult result = printOnPaper(printer, text, margins, progress);
    printer.setOutputFileName(path);
    if (result != PrintResult::Printed)
        return {result, {}};
    const FileContents pdf = readFile(QFile::encodeName(pages.fileName()).toStdString());
    const bool isWhole = pdf.bytes.ends_with("%%EOF\n");
    std::string reason =
        isWhole ? writeFile(QFile::encodeName(path).toStdString(), pdf.bytes) : "no room for temporary files";
    return {reason.empty() ? PrintResult::Printed : PrintResult::Failed, std::move(reason)};
}

} // namespace

PrintOutcome printOn(QPrinter &printer, const RichText &text, const PageMargins &margins,
                     const Progress &progress) {
    if (printer.outputFileName().isEmpty())
        return {printOnPaper(printer, text, margins, progress), {}};
    return printIntoFile(printer, text, margins, progress);
}

} // namespace zolt
