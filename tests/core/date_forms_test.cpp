#include "core/date_forms.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

TEST(DateForms, ShowAMomentInTheirOrder) {
    std::string shown;
    for (const std::string &form : dateForms({2007, 3, 5, 9, 4, 8}, {"March", "Mar", "Monday, 5 March 2007"}))
        shown += form + " | ";
    EXPECT_EQ(shown, "05-03-2007 | Monday, 5 March 2007 | 05 de March de 2007 | 05-03-07 | 2007-03-05 | "
                     "05-Mar-07 | 05/03/2007 | 05 Mar, 2007 | 05/03/07 | March de 07 | March-07 | "
                     "05-03-2007 9:04 | 05-03-2007 9:04:08 | 9:04 | 9:04:08 | 09:04 | 09:04:08 | ");
    EXPECT_EQ(dateForms({1999, 12, 31, 23, 59, 0}, {"dezembro", "dez", ""})[12], "31-12-1999 23:59:00");
}

} // namespace
} // namespace zolt
