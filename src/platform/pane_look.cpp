#include "platform/pane_look.h"

#include "platform/colours.h"
#include "platform/held_text.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <cstdlib>

namespace zolt {

namespace {

constexpr int kLongestLook = 20'000;    // characters of a paragraph
constexpr qsizetype kMostFormats = 500; // of a paragraph
constexpr int kMuch = 100'000;          // characters; a change of more is like a new text
constexpr double kDimPart = 0.45;       // of the text's colour
constexpr double kLimitPart = 0.3;

constexpr QRgb kWarningOnLight = 0xFFC00020;
constexpr QRgb kWarningOnDark = 0xFFFF8A80;
constexpr int kIsPicture = QTextFormat::UserProperty;

QColor mixed(const QColor &over, const QColor &under, double part) {
    const auto mix = [part](float one, float other) {
        return static_cast<float>(part * one + (1 - part) * other);
    };
    return QColor::fromRgbF(mix(over.redF(), under.redF()), mix(over.greenF(), under.greenF()),
                            mix(over.blueF(), under.blueF()));
}

/// The bytes of a part of the document, a line end being one character.
std::string bytesOf(const QTextDocument &document, int from, int to) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(std::max(0, to - from)));
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        const QString text = block.text();
        const qsizetype begin = std::max(0, from - block.position());
        const qsizetype end = std::min<qsizetype>(text.size(), to - block.position());
        for (qsizetype i = begin; i < end; ++i)
            bytes += static_cast<char>(byteOfHeldCharacter(text[i]));
        if (to - block.position() > text.size())
            bytes += '\n';
    }
    return bytes;
}

/// The bytes of a text, a line end being one character.
std::string withSingleLineEnds(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t done = 0; done < bytes.size();) {
        const std::size_t lineEnd = std::min(bytes.find("\r\n", done), bytes.size());
        text.append(bytes, done, lineEnd - done);
        if (lineEnd < bytes.size())
            text += '\n';
        done = lineEnd + 2;
    }
    return text;
}

char byteAt(const QTextDocument &document, int position) {
    if (position < 0 || position >= document.characterCount() - 1)
        return '\0';
    const QChar character = document.characterAt(position);
    return character == QChar::ParagraphSeparator ? '\n' : static_cast<char>(byteOfHeldCharacter(character));
}

/// With all of the font: Qt takes up kerning where a format says nothing of it.
QTextCharFormat coloured(const QFont &font, const QColor &colour) {
    QTextCharFormat format;
    format.setFont(font);
    format.setForeground(colour);
    return format;
}

} // namespace

void PaneLook::setShows(const PaneShows &shows) {
    m_shows = shows;
    forgetCodes();
}

bool PaneLook::followChange(int from, int removed, int added) {
    m_length = m_document.characterCount();
    if (!m_shows.styles || m_isGrowing)
        return false;
    if (!m_knowsCodes || added > kMuch) {
        forgetCodes();
        return true;
    }
    // Qt counts the last line end into a change that reaches it.
    const int size = static_cast<int>(m_runs.size());
    const int end = std::min(from + added, m_length - 1);
    const int gone = std::min(removed, size - from);
    if (gone < 0 || end < from || size - gone + (end - from) != m_length - 1) {
        forgetCodes();
        return true;
    }
    return m_runs.replaced(static_cast<std::size_t>(from), static_cast<std::size_t>(gone),
                           bytesOf(m_document, from, end), byteAt(m_document, from - 1),
                           byteAt(m_document, end));
}

bool PaneLook::isUpToDate() const {
    return m_length == m_document.characterCount();
}

void PaneLook::forgetCodes() {
    m_length = m_document.characterCount();
    m_runs = StyleRuns();
    m_knowsCodes = false;
}

void PaneLook::beginText(std::string_view bytes) {
    forgetCodes();
    m_isGrowing = true;
    if (m_shows.styles)
        readCodes(withSingleLineEnds(bytes));
}

void PaneLook::readCodes(std::string_view text) const {
    m_runs.replaced(0, 0, text, '\0', '\0');
    m_knowsCodes = true;
}

const StyleRuns &PaneLook::runs() const {
    if (!m_knowsCodes)
        readCodes(withSingleLineEnds(bytesOfHeldText(m_document.toRawText())));
    return m_runs;
}

void PaneLook::setGround(const QFont &font, const QColor &text, const QColor &background) {
    if (m_font == font && m_text == text && m_background == background)
        return;
    m_font = font;
    m_text = text;
    m_background = background;
    makeFormats();
}

void PaneLook::makeFormats() {
    m_limit = mixed(m_text, m_background, kLimitPart);
    m_codeFormat = coloured(*m_font, mixed(m_text, m_background, kDimPart));
    m_warningFormat =
        coloured(*m_font, QColor(readableOn(m_background) == Qt::black ? kWarningOnLight : kWarningOnDark));
    m_pictureFormat = coloured(*m_font, Qt::transparent);
    m_pictureFormat.setProperty(kIsPicture, true);
    m_styleFormats = {};
}

const QTextCharFormat &PaneLook::formatOfStyle(Style style, Width width) const {
    std::optional<QTextCharFormat> &format = m_styleFormats[width][static_cast<std::size_t>(style)];
    if (!format)
        format = madeFormatOfStyle(style, width);
    return *format;
}

QTextCharFormat PaneLook::madeFormatOfStyle(Style style, Width width) const {
    const std::string_view name = fontOfStyle(style);
    QFont font = *m_font;
    font.setFamilies(QStringList(QString::fromLatin1(name.data(), qsizetype(name.size()))) +
                     m_font->families());
    const auto advance = [](const QFont &of) { return QFontMetricsF(of).horizontalAdvance(u'0'); };
    if (const double part = advance(*m_font) / advance(font); width == Squeezed && part < 1)
        font.setStretch(std::max(1, static_cast<int>(100 * part)));
    QTextCharFormat format;
    format.setFont(font);
    return format;
}

bool PaneLook::isShort(const QTextBlock &block) {
    return block.length() <= kLongestLook;
}

PaneLook::Formats PaneLook::formatsOf(const QTextBlock &block, Width width) const {
    Formats formats;
    if (!isShort(block))
        return formats;
    const auto add = [&](std::size_t begin, std::size_t end, const QTextCharFormat &format) {
        formats.append({static_cast<int>(begin), static_cast<int>(end - begin), format});
    };
    const auto start = static_cast<std::size_t>(block.position());
    if (m_shows.styles) {
        const std::size_t end = start + static_cast<std::size_t>(block.length() - 1);
        for (const StyleRuns::Span &span : runs().between(start, end)) {
            if (span.kind == StyleRuns::Span::Codes)
                add(span.begin - start, span.end - start, m_codeFormat);
            else if (span.kind != StyleRuns::Span::Text)
                add(span.begin - start, span.end - start, m_warningFormat);
            else if (span.style != Style::Plain && width != Plain)
                add(span.begin - start, span.end - start, formatOfStyle(span.style, width));
        }
    }
    for (const PaneStretch &run : m_shows.pictures ? cellRuns(block) : std::vector<PaneStretch>())
        if (!isInUse(block, run))
            add(static_cast<std::size_t>(run.begin), static_cast<std::size_t>(run.end), m_pictureFormat);
    if (formats.size() > kMostFormats)
        formats.clear();
    return formats;
}

bool PaneLook::isPicture(const QTextLayout::FormatRange &range) {
    return range.format.hasProperty(kIsPicture);
}

bool PaneLook::isInUse(const QTextBlock &block, PaneStretch run) const {
    const bool touches =
        m_selection.begin <= block.position() + run.end && m_selection.end >= block.position() + run.begin;
    return touches || (m_wraps && isPictureRow(block) && isPictureInUse(block));
}

bool PaneLook::isPictureInUse(const QTextBlock &row) const {
    const bool isBehind = m_selection.begin > row.position();
    const QTextBlock used = m_document.findBlock(isBehind ? m_selection.begin : m_selection.end);
    if (!used.isValid() || std::abs(used.blockNumber() - row.blockNumber()) > kMostRows)
        return false;
    for (QTextBlock block = used; block != row; block = isBehind ? block.previous() : block.next())
        if (!block.isValid() || !isPictureRow(block))
            return false;
    return true;
}

bool PaneLook::isPictureRow(const QTextBlock &block) {
    if (block.length() <= 1 || (block.length() - 1) % static_cast<int>(kCellLength) != 0 || !isShort(block))
        return false;
    const std::string bytes = bytesOfHeldText(block.text());
    for (std::size_t i = 0; i < bytes.size(); i += kCellLength)
        if (!beginsWithCell(std::string_view(bytes).substr(i)))
            return false;
    return true;
}

std::vector<PaneStretch> PaneLook::cellRuns(const QTextBlock &block) {
    static const QChar kMark = heldText(std::string(1, kCellMark)).front();
    const QString text = block.text();
    if (!text.contains(kMark))
        return {};
    const std::string bytes = bytesOfHeldText(text);
    const std::string_view view = bytes;
    std::vector<PaneStretch> runs;
    for (std::size_t i = view.find(kCellMark); i != std::string_view::npos; i = view.find(kCellMark, i)) {
        std::size_t end = i;
        while (beginsWithCell(view.substr(end)))
            end += kCellLength;
        if (end > i)
            runs.push_back({static_cast<int>(i), static_cast<int>(end)});
        i = std::max(end, i + 1);
    }
    return runs;
}

} // namespace zolt
