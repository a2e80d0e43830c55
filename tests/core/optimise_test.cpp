#include "core/codes.h"
#include "core/optimise.h"
#include "support/literal_commands.h"
#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

TEST(Optimisation, EqualsTheSlowWalkOverRandomDocuments) {
    const std::string cell(kBlankCell);
    const std::vector<std::string> pieces{cell,     cell, cell, "\x9E", "0",    "00",
                                          "000000", "A",  "\r", "\n",   "\r\n", " "};
    for (const std::string &document : test::randomTexts(pieces, 20000))
        for (const Optimisation kind : {Optimisation::Partial, Optimisation::Total})
            ASSERT_EQ(optimiseImages(document, kind), literal::optimised(document, kind))
                << testing::PrintToString(document);
}

} // namespace
} // namespace zolt
