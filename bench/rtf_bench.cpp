// How long RTF takes to write and read, and the rich text control to take it, show
// it, find a display line and give it back, for documents of 1 MB and 10 MB; and how
// much memory the reader takes at most for 100 MB of the most costly kind.

#include "graphic/rich_text_builder.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "platform/rich_text_box.h"

#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <string>
#include <sys/resource.h>

using namespace zolt;

namespace {

/// Lines of 30 columns; each fourth one holds a word in a style font.
RichText document(std::size_t bytes) {
    RichTextBuilder builder;
    const CharFormat plain;
    const CharFormat bold{.font = builder.text().fontIndex("ZOLTBold")};
    for (std::size_t line = 0; line * 32 < bytes; ++line) {
        if (line > 0)
            builder.endParagraph();
        builder.append("A line of text, ", plain);
        builder.append("caf\xE9 and word", line % 4 == 0 ? bold : plain);
    }
    return std::move(builder.text());
}

/// As another program may write it: a run for every few bytes.
std::string alternatingRtf(std::size_t bytes) {
    std::string rtf = "{\\rtf1\\ansi ";
    while (rtf.size() < bytes)
        rtf += "\\b x\\b0 y";
    return rtf + "}";
}

template <class Work> void measure(const char *what, std::size_t bytes, Work work) {
    QElapsedTimer timer;
    timer.start();
    work();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    std::printf("%-28s %5.1f MB %8.3f s %8.1f MB/s\n", what, static_cast<double>(bytes) / 1e6, seconds,
                static_cast<double>(bytes) / 1e6 / seconds);
}

/// Of the whole program, so the largest reading comes first.
void measureMemory() {
    const std::string alternating = alternatingRtf(100'000'000);
    measure("read alternating formats", alternating.size(), [&] { richTextFromRtf(alternating); });
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%-28s %5.1f MB\n", "  with the source, at most",
                static_cast<double>(usage.ru_maxrss) * 1.024e-3);
}

void measureAll(std::size_t bytes) {
    const RichText text = document(bytes);
    std::string rtf;
    measure("write RTF", bytes, [&] { rtf = rtfFromRichText(text); });
    measure("read RTF", rtf.size(), [&] { richTextFromRtf(rtf); });
    const std::string alternating = alternatingRtf(bytes);
    measure("read alternating formats", alternating.size(), [&] { richTextFromRtf(alternating); });
    for (const bool wraps : {false, true}) {
        std::printf("control that %s\n", wraps ? "wraps" : "doesn't wrap");
        RichTextBox box(wraps);
        box.resize(600, 400);
        box.show();
        QApplication::processEvents();
        measure("  set", bytes, [&] { box.setRichText(text); });
        measure("  show", bytes, [&] {
            box.viewport()->grab();
            QApplication::processEvents();
        });
        measure("  last line's number", bytes, [&] { box.lineCount(); });
        measure("  type a character", bytes, [&] { box.setSelText("x"); });
        measure("  get", bytes, [&] { box.richText(); });
        measure("  get plain", bytes, [&] { box.Text(); });
    }
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    measureMemory();
    measureAll(1'000'000);
    measureAll(10'000'000);
}
