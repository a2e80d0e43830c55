#include "platform/rich_layout.h"

#include <QElapsedTimer>
#include <QFontMetricsF>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextLayout>
#include <QTextObjectInterface>
#include <algorithm>
#include <climits>
#include <cmath>

namespace zolt {

namespace {

constexpr qreal kUnlimited = INT_MAX;
constexpr int kMeasureFor = 5;         // milliseconds in one turn of the event loop
constexpr int kLongParagraph = 10'000; // characters

constexpr int kEndlessWord = 2'000; // characters

/// Qt goes over all of a word for each line that it fills.
bool holdsEndlessWord(const QTextBlock &block) {
    if (block.length() <= kEndlessWord)
        return false;
    int length = 0;
    for (const QChar c : block.text()) {
        length = c.isSpace() ? 0 : length + 1;
        if (length > kEndlessWord)
            return true;
    }
    return false;
}

int wholePixels(qreal pixels) {
    return static_cast<int>(std::ceil(std::min(pixels, kUnlimited)));
}

} // namespace

/// Tells the view what is being corrected, once for all corrections in its scope.
class RichLayout::Measuring {
public:
    /// Qt asks for sizes by const functions.
    explicit Measuring(const RichLayout &layout) : m_layout(const_cast<RichLayout &>(layout)) {
        if (m_layout.m_measurings++ == 0)
            emit m_layout.aboutToMeasure();
    }
    ~Measuring() {
        if (--m_layout.m_measurings > 0)
            return;
        m_layout.reportSize();
        emit m_layout.measured(m_layout.m_firstFound, m_layout.m_lastFound);
        m_layout.m_firstFound = 0;
        m_layout.m_lastFound = -1;
    }
    Measuring(const Measuring &) = delete;
    Measuring &operator=(const Measuring &) = delete;

private:
    RichLayout &m_layout;
};

RichLayout::RichLayout(QTextDocument *document) : QAbstractTextDocumentLayout(document) {
    // Tells QTextEdit that a new width changes nothing where no line wraps.
    setProperty("contentHasAlignment", false);
    m_idle.setInterval(0);
    connect(&m_idle, &QTimer::timeout, this, &RichLayout::measureSome);
}

bool RichLayout::wraps() const {
    return document()->defaultTextOption().wrapMode() != QTextOption::NoWrap &&
           document()->pageSize().width() > 0;
}

qreal RichLayout::textWidth() const {
    return wraps() ? std::max<qreal>(document()->pageSize().width() - 2 * document()->documentMargin(), 1)
                   : kUnlimited;
}

RichLayout::Basis RichLayout::basis() const {
    const QTextOption option = document()->defaultTextOption();
    return {textWidth(), option.tabStopDistance(), option.wrapMode()};
}

QTextOption RichLayout::lineOption(const QTextBlock &block, QTextOption option) {
    option.setTextDirection(Qt::LeftToRight);
    if (option.wrapMode() != QTextOption::NoWrap && holdsEndlessWord(block))
        option.setWrapMode(QTextOption::WrapAnywhere);
    return option;
}

void RichLayout::layOut(const QTextBlock &block) const {
    const int number = block.blockNumber();
    QTextLayout *layout = block.layout();
    const bool isKnown =
        static_cast<std::size_t>(number) >= m_sizes.size() || m_sizes[static_cast<std::size_t>(number)].exact;
    if (layout->lineCount() > 0 && isKnown)
        return;
    QTextOption option = document()->defaultTextOption();
    if (!wraps())
        option.setWrapMode(QTextOption::NoWrap);
    layout->setTextOption(lineOption(block, option));
    // Qt shapes a paragraph anew for each drawing, or keeps the shapes in memory.
    layout->setCacheEnabled(block.length() > kLongParagraph);
    qreal y = 0;
    qreal width = 0;
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(textWidth());
        line.setPosition({0, y});
        y += std::ceil(line.height());
        width = std::max(width, line.naturalTextWidth());
    }
    layout->endLayout();
    note(number, {static_cast<int>(y), wholePixels(width), layout->lineCount(), true});
}

void RichLayout::note(int number, Size size) const {
    if (static_cast<std::size_t>(number) >= m_sizes.size())
        return;
    Size &known = m_sizes[static_cast<std::size_t>(number)];
    if (size.height == known.height && size.width == known.width && size.lines == known.lines) {
        known.exact = true;
    } else if (m_quiet) {
        setSize(number, size);
    } else {
        const Measuring measuring(*this);
        m_firstFound = m_lastFound < 0 ? number : std::min(m_firstFound, number);
        m_lastFound = std::max(m_lastFound, number);
        setSize(number, size);
    }
}

void RichLayout::setSize(int number, Size size) const {
    Size &known = m_sizes[static_cast<std::size_t>(number)];
    m_height += size.height - known.height;
    if (size.width >= m_widest) {
        m_widest = size.width;
        m_widestIsRight = true;
    } else if (known.width == m_widest) {
        m_widestIsRight = false;
    }
    m_summed = std::min(m_summed, number);
    known = size;
}

/// A layout takes much memory: only those that show keep theirs.
void RichLayout::measure(int number) {
    if (m_sizes[static_cast<std::size_t>(number)].exact)
        return;
    QTextBlock block = document()->findBlockByNumber(number);
    layOut(block);
    block.clearLayout();
}

template <class Part> RichLayout::CharacterSize RichLayout::characterSize(const Part &part) const {
    const int index = part.charFormatIndex();
    if (const auto known = m_characterSizes.find(index); known != m_characterSizes.end())
        return known->second;
    const QTextCharFormat format = part.charFormat();
    if (auto *object = dynamic_cast<QTextObjectInterface *>(handlerForObject(format.objectType()))) {
        const QSizeF size = object->intrinsicSize(document(), part.position(), format);
        return {wholePixels(size.height()), size.width()};
    }
    const QFontMetricsF metrics(format.font(), paintDevice());
    return m_characterSizes[index] = {wholePixels(metrics.ascent() + metrics.descent()),
                                      metrics.averageCharWidth()};
}

RichLayout::Size RichLayout::estimated(const QTextBlock &block) const {
    Size size;
    if (block.length() <= 1) {
        size.height = characterSize(block).height;
        return size;
    }
    qreal width = 0;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const CharacterSize one = characterSize(fragment);
        size.height = std::max(size.height, one.height);
        width += one.width * fragment.length();
    }
    size.width = wholePixels(std::min(width, textWidth()));
    if (width > textWidth()) {
        size.lines = wholePixels(width / textWidth());
        size.height *= size.lines;
    }
    return size;
}

void RichLayout::documentChanged(int from, int removed, int added) {
    // Qt asks for a new layout of all with nothing removed, also where it would be the same.
    const bool isAll = from == 0 && removed == 0 && added == document()->characterCount();
    const bool isSame = m_basis == basis() && static_cast<int>(m_sizes.size()) == document()->blockCount();
    if (isAll && isSame)
        return;
    m_basis = basis();

    const QTextBlock behind = document()->findBlock(from + added);
    const int first = std::max(document()->findBlock(from).blockNumber(), 0);
    const int last = behind.isValid() ? behind.blockNumber() : document()->blockCount() - 1;
    const qint64 oldHeight = m_height;
    const bool sameCount = static_cast<int>(m_sizes.size()) == document()->blockCount();
    {
        const QScopedValueRollback quiet(m_quiet, true);
        replaceSizes(first, last);
    }
    m_idle.start();
    reportSize();

    const auto top = static_cast<qreal>(inFrontOf(first).height);
    const bool restStays = first == last && sameCount && m_height == oldHeight;
    const qreal height = restStays ? m_sizes[static_cast<std::size_t>(first)].height : kUnlimited;
    emit update(QRectF(0, top, kUnlimited, height + document()->documentMargin()));
}

/// Takes the paragraphs from `first` to `last`, which are new or changed, for what stood
/// between the others before.
void RichLayout::replaceSizes(int first, int last) {
    const auto at = [this](int number) { return m_sizes.begin() + number; };
    const int count = static_cast<int>(m_sizes.size());
    const int more = document()->blockCount() - count;
    const int lastBefore = std::clamp(last - more, first - 1, count - 1);
    for (int number = first; number <= lastBefore; ++number)
        setSize(number, {});
    if (more > 0)
        m_sizes.insert(at(lastBefore + 1), static_cast<std::size_t>(more), Size{});
    else if (more < 0)
        m_sizes.erase(at(lastBefore + 1 + more), at(lastBefore + 1));
    m_sums.resize(m_sizes.size() + 1);
    m_summed = std::min(m_summed, first);
    m_measured = std::min(m_measured, first);

    QTextBlock block = document()->findBlockByNumber(first);
    for (int number = first; number <= last; ++number, block = block.next()) {
        block.clearLayout();
        setSize(number, estimated(block));
    }
    if (first == last)
        layOut(document()->findBlockByNumber(first));
}

void RichLayout::reportSize() {
    if (const QSizeF size = documentSize(); size != m_reported) {
        m_reported = size;
        emit documentSizeChanged(size);
    }
}

void RichLayout::measureSome() {
    QElapsedTimer clock;
    clock.start();
    const Measuring measuring(*this);
    const int count = static_cast<int>(m_sizes.size());
    for (; m_measured < count; ++m_measured) {
        if (m_sizes[static_cast<std::size_t>(m_measured)].exact)
            continue;
        if (clock.elapsed() >= kMeasureFor)
            break;
        measure(m_measured);
    }
    if (m_measured == count)
        m_idle.stop();
}

const RichLayout::Sum &RichLayout::inFrontOf(int number) const {
    if (m_sums.empty())
        m_sums.resize(1);
    const int wanted = std::clamp(number, 0, static_cast<int>(m_sizes.size()));
    for (; m_summed < wanted; ++m_summed) {
        const auto i = static_cast<std::size_t>(m_summed);
        m_sums[i + 1] = {m_sums[i].height + m_sizes[i].height, m_sums[i].lines + m_sizes[i].lines};
    }
    return m_sums[static_cast<std::size_t>(wanted)];
}

int RichLayout::widest() const {
    if (!m_widestIsRight) {
        m_widest = 0;
        for (const Size &size : m_sizes)
            m_widest = std::max(m_widest, size.width);
        m_widestIsRight = true;
    }
    return m_widest;
}

QTextBlock RichLayout::blockAt(qint64 height) const {
    inFrontOf(static_cast<int>(m_sizes.size()));
    const auto above = std::upper_bound(m_sums.begin() + 1, m_sums.end(), height,
                                        [](qint64 wanted, const Sum &sum) { return wanted < sum.height; });
    const auto last = static_cast<std::ptrdiff_t>(m_sizes.size()) - 1;
    return document()->findBlockByNumber(static_cast<int>(std::min(above - (m_sums.begin() + 1), last)));
}

RichLayout::Place RichLayout::placeAt(int height) const {
    const int number = blockAt(height).blockNumber();
    return {number, height - static_cast<int>(inFrontOf(number).height)};
}

int RichLayout::heightOf(Place place) const {
    return static_cast<int>(inFrontOf(place.paragraph).height) + place.above;
}

RichLayout::Place RichLayout::placeOfLine(int position) const {
    const QTextBlock block = document()->findBlock(position);
    layOut(block);
    const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
    return {block.blockNumber(), static_cast<int>(line.y())};
}

void RichLayout::layOutView(Place top, int height) {
    const Measuring measuring(*this);
    const int count = static_cast<int>(m_sizes.size());
    int seen = -top.above;
    for (int number = top.paragraph; number < count && seen < height; ++number) {
        if (!m_sizes[static_cast<std::size_t>(number)].exact)
            layOut(document()->findBlockByNumber(number));
        seen += m_sizes[static_cast<std::size_t>(number)].height;
    }
}

QSizeF RichLayout::documentSize() const {
    const qreal margins = 2 * document()->documentMargin();
    const qreal width = wraps() ? document()->pageSize().width() : widest() + margins;
    return {std::ceil(width), static_cast<qreal>(m_height) + margins};
}

QRectF RichLayout::frameBoundingRect(QTextFrame *) const {
    return {QPointF(), documentSize()};
}

QRectF RichLayout::blockBoundingRect(const QTextBlock &block) const {
    if (!block.isValid())
        return {};
    layOut(block);
    const qreal margin = document()->documentMargin();
    const int number = block.blockNumber();
    return {margin, margin + static_cast<qreal>(inFrontOf(number).height),
            wraps() ? textWidth() : std::max(widest(), 1),
            qreal(m_sizes[static_cast<std::size_t>(number)].height)};
}

int RichLayout::lineOfPosition(int position) {
    const QTextBlock block = document()->findBlock(position);
    const int number = block.blockNumber();
    if (!wraps())
        return number;
    {
        const Measuring measuring(*this);
        for (; m_measured < number; ++m_measured)
            measure(m_measured);
    }
    layOut(block);
    return inFrontOf(number).lines +
           block.layout()->lineForTextPosition(position - block.position()).lineNumber();
}

int RichLayout::lineStart(int position) {
    const QTextBlock block = document()->findBlock(position);
    layOut(block);
    return block.position() + block.layout()->lineForTextPosition(position - block.position()).textStart();
}

} // namespace zolt
