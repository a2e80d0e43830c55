#include "platform/rich_text_document.h"

#include "graphic/rich_text_builder.h"
#include "platform/pictures.h"
#include "platform/rich_layout.h"
#include "platform/rich_text_characters.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFragment>
#include <QTextOption>
#include <algorithm>
#include <unordered_map>
#include <utility>

namespace zolt {

namespace {

constexpr int kTwipsAPixel = 15;
constexpr qsizetype kImageCacheKilobytes = 64 * 1024;
constexpr int kPictureProperty = QTextFormat::UserProperty + 2;
/// How many pictures side by side are passed over in search of text beside them.
constexpr int kNeighbours = 64;
constexpr qreal kMargin = 2;
/// RTF's tab stops: half an inch, 720 twips.
constexpr qreal kTabStop = 720.0 / kTwipsAPixel;
/// Characters gathered before they go to the document in one piece.
constexpr qsizetype kPiece = 1 << 16;

bool endsSearch(QChar c) {
    return c == QChar::ParagraphSeparator || c.isNull();
}

/// Puts runs into a document, as many characters of one format at a time as there are.
class Inserter {
public:
    explicit Inserter(QTextCursor &cursor) : m_cursor(cursor) {}

    void setFormat(const QTextCharFormat &format) {
        flush();
        m_format = format;
        m_kind = fontKindOf(format);
    }
    void append(std::string_view characters) {
        m_text += shownText(characters, m_kind);
        if (m_text.size() > kPiece)
            flush();
    }
    void append(QChar character) { m_text += character; }
    void flush() {
        if (!m_text.isEmpty())
            m_cursor.insertText(m_text, m_format);
        m_text.clear();
    }

private:
    QTextCursor &m_cursor;
    QTextCharFormat m_format;
    FontKind m_kind = FontKind::Calculator;
    QString m_text;
};

} // namespace

RichTextDocument::RichTextDocument()
    : m_layout(new RichLayout(this)), m_twipsAPixel(kTwipsAPixel), m_images(kImageCacheKilobytes) {
    m_layout->registerHandler(QTextFormat::ImageObject, this);
    setDocumentLayout(m_layout);
    setDocumentMargin(kMargin);
    QTextOption option = defaultTextOption();
    option.setTabStopDistance(kTabStop);
    setDefaultTextOption(option);
    setDefaultFont(qtFormat({}, RichText{}.fonts.front()).font());
}

std::unique_ptr<RichTextDocument> RichTextDocument::make(const RichText &text, const Progress &progress) {
    std::unique_ptr<RichTextDocument> document(new RichTextDocument);
    document->setUndoRedoEnabled(false);
    QTextCursor cursor(document.get());
    cursor.setBlockCharFormat(qtFormat({}, text.fonts.front()));
    cursor.beginEditBlock();
    const bool done = document->append(cursor, text, progress);
    cursor.endEditBlock();
    if (!done)
        return nullptr;
    document->setUndoRedoEnabled(true);
    return document;
}

void RichTextDocument::insert(QTextCursor &cursor, const RichText &text) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    append(cursor, text, {});
    cursor.endEditBlock();
}

void RichTextDocument::insert(QTextCursor &cursor, const RichPicture &picture,
                              const QTextCharFormat &format) {
    cursor.insertText(QString(QChar::ObjectReplacementCharacter), pictureFormat(picture, format));
}

bool RichTextDocument::append(QTextCursor &cursor, const RichText &text, const Progress &progress) {
    constexpr std::size_t kReportEvery = 256; // paragraphs and runs
    Inserter inserter(cursor);
    CharFormat format;
    inserter.setFormat(qtFormat(format, text.fonts[format.font]));
    std::size_t steps = 0;
    for (std::size_t i = 0; i < text.paragraphs.size(); ++i) {
        if (steps++ % kReportEvery == 0 && !goOn(progress, i, text.paragraphs.size()))
            return false;
        if (i > 0)
            inserter.append(QChar(QChar::ParagraphSeparator));
        for (const Run &run : text.paragraphs[i].runs) {
            if (++steps % kReportEvery == 0 && !goOn(progress, i, text.paragraphs.size()))
                return false;
            if (run.format != format) {
                format = run.format;
                inserter.setFormat(qtFormat(format, text.fonts[format.font]));
            }
            if (const RichPicture *picture = run.content.picture()) {
                inserter.flush();
                insert(cursor, *picture, qtFormat(format, text.fonts[format.font]));
            } else {
                inserter.append(run.content.characters());
            }
        }
    }
    inserter.flush();
    return true;
}

QTextCharFormat RichTextDocument::pictureFormat(const RichPicture &picture, QTextCharFormat format) {
    m_pictures.push_back(picture);
    format.setObjectType(QTextFormat::ImageObject);
    format.setProperty(kPictureProperty, static_cast<int>(m_pictures.size()) - 1);
    return format;
}

const RichPicture *RichTextDocument::pictureOf(const QTextFormat &format) const {
    const auto number = static_cast<std::size_t>(format.intProperty(kPictureProperty));
    return format.objectType() == QTextFormat::ImageObject && number < m_pictures.size() ? &m_pictures[number]
                                                                                         : nullptr;
}

QTextCharFormat textFormat(QTextCharFormat format) {
    format.clearProperty(QTextFormat::ObjectType);
    format.clearProperty(kPictureProperty);
    return format;
}

RichText RichTextDocument::richText(int from, int to) const {
    RichTextBuilder builder;
    RichText &text = builder.text();
    text.fonts.clear();
    std::unordered_map<int, CharFormat> formats;
    const auto formatOf = [&](const QTextFragment &fragment) {
        const auto [found, isNew] = formats.try_emplace(fragment.charFormatIndex());
        if (isNew) {
            const QTextCharFormat format = fragment.charFormat();
            found->second = charFormatOf(format);
            found->second.font = text.fontIndex(fontNameOf(format));
        }
        return found->second;
    };

    for (QTextBlock block = findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const int start = std::max(fragment.position(), from);
            const int end = std::min(fragment.position() + fragment.length(), to);
            if (start >= end)
                continue;
            const CharFormat format = formatOf(fragment);
            if (const RichPicture *picture = pictureOf(fragment.charFormat())) {
                for (int i = start; i < end; ++i)
                    builder.append(*picture, format);
            } else {
                const QString characters = fragment.text().mid(start - fragment.position(), end - start);
                builder.append(bytesOfShownText(characters), format);
            }
        }
        if (block.position() + block.length() <= to)
            builder.endParagraph();
    }
    if (text.fonts.empty())
        text.fonts = RichText{}.fonts;
    return std::move(text);
}

const QImage &RichTextDocument::image(int number) {
    if (!m_images.contains(number)) {
        const std::string &bytes = m_pictures[static_cast<std::size_t>(number)].bytes;
        auto *decoded = new QImage(decodeEmbedded(bytes).image);
        // A picture larger than the whole cache is not kept at all by QCache.
        const qsizetype cost = std::min(decoded->sizeInBytes() / 1024 + 1, m_images.maxCost());
        m_images.insert(number, decoded, cost);
    }
    return *m_images.object(number);
}

QImage RichTextDocument::pictureBetween(int from, int to) {
    if (to != from + 1 || characterAt(from) != QChar::ObjectReplacementCharacter)
        return {};
    QTextCursor cursor(this);
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    const QTextCharFormat format = cursor.charFormat();
    return pictureOf(format) ? image(format.intProperty(kPictureProperty)) : QImage();
}

void RichTextDocument::setPaper(QPaintDevice &device, QSize room) {
    m_twipsAPixel = 1;
    m_room = room;
    m_layout->setPaintDevice(&device);
    m_layout->rest();
}

QSize RichTextDocument::sizeOf(const RichPicture &picture) const {
    const auto pixels = [this](std::int32_t twips) {
        return static_cast<int>(
            std::max<std::int64_t>((std::int64_t{twips} + m_twipsAPixel / 2) / m_twipsAPixel, 1));
    };
    QSize size(pixels(picture.width), pixels(picture.height));
    if (m_room.isValid() && size.boundedTo(m_room) != size)
        size = size.scaled(m_room, Qt::KeepAspectRatio).expandedTo({1, 1});
    return size;
}

/// The part of a picture below the baseline of its line, so that it stands on the
/// line's foot as text does. A line of pictures alone has no such part.
qreal RichTextDocument::depthBelowBaseline(int position, const QTextFormat &format) const {
    const auto meetsText = [&](int step) {
        for (int i = 1; i <= kNeighbours; ++i) {
            const QChar c = characterAt(position + step * i);
            if (c != QChar::ObjectReplacementCharacter)
                return !endsSearch(c);
        }
        return false;
    };
    if (!meetsText(-1) && !meetsText(1))
        return 0;
    const QFont font = format.toCharFormat().font();
    return std::round(QFontMetricsF(font, m_layout->paintDevice()).descent());
}

QSizeF RichTextDocument::intrinsicSize(QTextDocument *, int position, const QTextFormat &format) {
    const RichPicture *picture = pictureOf(format);
    if (!picture)
        return {};
    const QSizeF size = sizeOf(*picture);
    return {size.width(), std::max<qreal>(size.height() - depthBelowBaseline(position, format), 0)};
}

void RichTextDocument::drawObject(QPainter *painter, const QRectF &place, QTextDocument *, int,
                                  const QTextFormat &format) {
    const RichPicture *picture = pictureOf(format);
    if (!picture)
        return;
    const QRect rect(QPoint(qRound(place.x()), qRound(place.y())), sizeOf(*picture));
    const QImage &decoded = image(format.intProperty(kPictureProperty));
    if (decoded.isNull()) {
        painter->drawRect(rect.adjusted(0, 0, -1, -1));
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    if (m_whiteIsClear)
        painter->setCompositionMode(QPainter::CompositionMode_Multiply);
    painter->drawImage(rect, decoded);
    painter->restore();
}

} // namespace zolt
