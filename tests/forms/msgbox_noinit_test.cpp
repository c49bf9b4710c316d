// A message before the toolkit is started is lost, silently.
#include "xwktest.h"

TEST(MessageBoxBeforeStart, GivesMinusOne)
{
    EXPECT_EQ(condit(nullptr, "Early", 1, "Nobody sees this", nullptr, 0, 1, 2), -1);
    EXPECT_EQ(xwkConditWidget, nullptr);
    EXPECT_EQ(XwkShowStdDialog(nullptr, nullptr, "Early", XWK_DIALOG_ERROR), -1);
}
