// How fast rich text becomes source code: text of 1 and 10 MB, of which the second may
// take twelve times the first, and pictures.

#include "graphic/rich_text_builder.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "hp48/source_compiler.h"
#include "platform/embedded_picture.h"
#include "rich_document.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <malloc.h>

namespace {

using namespace zolt;

/// Lines of 32 bytes, the last of whose words is in a style font in each fourth line, or
/// in runs of one character.
RichText textOf(std::size_t bytes, bool shortRuns) {
    RichTextBuilder builder;
    const CharFormat plain;
    const CharFormat bold{.font = builder.text().fontIndex("ZOLTBold")};
    for (std::size_t line = 0; line * 32 < bytes; ++line) {
        if (line > 0)
            builder.endParagraph();
        if (shortRuns) {
            for (int i = 0; i < 15; ++i) {
                builder.append("a", plain);
                builder.append("b", bold);
            }
        } else {
            builder.append("A line of text, ", plain);
            builder.append("caf\xE9 and word", line % 4 == 0 ? bold : plain);
        }
    }
    return std::move(builder.text());
}

/// Processor time, since other programs may run beside this one.
double seconds(const std::function<void()> &work) {
    double best = 1e9;
    for (int i = 0; i < 5; ++i) {
        malloc_trim(0);
        const std::clock_t begin = std::clock();
        work();
        best = std::min(best, static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
    }
    return best;
}

void measureText(const char *name, bool shortRuns, bool fromRtf) {
    double times[2] = {};
    for (const std::size_t megabytes : {1, 10}) {
        const RichText text = textOf(megabytes * 1'000'000, shortRuns);
        const std::string rtf = fromRtf ? rtfFromRichText(text) : std::string();
        times[megabytes == 10] = seconds(
            [&] { compileSource(fromRtf ? richTextFromRtf(rtf) : text, SourceKind::Total, dotsForSource); });
    }
    std::printf("%-28s %8.1f ms %8.1f ms %8.1f MB/s %6.1f times\n", name, times[0] * 1e3, times[1] * 1e3,
                10 / times[1], times[1] / times[0]);
}

void measurePictures() {
    RichTextBuilder builder;
    constexpr int kPictures = 500;
    const RichPicture picture = drawnPicture();
    for (int i = 0; i < kPictures; ++i)
        builder.append(picture, {});
    const double time = seconds([&] { compileSource(builder.text(), SourceKind::Total, dotsForSource); });
    std::printf("%-28s %8.0f a second\n", "pictures of 264 by 60", kPictures / time);
}

} // namespace

int main() {
    std::printf("%-28s %11s %11s\n", "", "1 MB", "10 MB");
    measureText("ordinary text", false, false);
    measureText("the same from RTF", false, true);
    measureText("runs of one character", true, false);
    measureText("the same from RTF", true, true);
    measurePictures();
}
