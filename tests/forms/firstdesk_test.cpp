// Before the toolkit is started a message is lost, silently; the first desk
// of a process starts the toolkit itself.
#include "xwktest.h"
#include "boxdriver.h"

TEST(FirstDesk, MessagesAreLostUntilTheFirstDeskStartsXt)
{
    EXPECT_EQ(condit(nullptr, "Early", 1, "Nobody sees this", nullptr, 0, 1, 2), -1);
    EXPECT_EQ(xwkConditWidget, nullptr);
    EXPECT_EQ(XwkShowStdDialog(nullptr, nullptr, "Early", XWK_DIALOG_ERROR), -1);

    xwktest::DisplayName();  // the private server, in DISPLAY
    static char arg0[] = "FirstDeskTest";
    static char *argv[] = {arg0, nullptr};
    xargc = 1;
    xargv = argv;
    ASSERT_EQ(xwkTopLevel, nullptr);

    XwkDeskRec *desk = nullptr;
    CreateDesk(nullptr, 0.5f, 0.5f, "First|first#top", &desk);
    ASSERT_NE(desk, nullptr);
    ASSERT_NE(xwkTopLevel, nullptr);
    EXPECT_EQ(desk->form, xwkTopLevel);
    EXPECT_TRUE(XtIsApplicationShell(desk->form));
    EXPECT_STREQ(xwktest::Get<char *>(desk->form, XtNtitle), "First");
    EXPECT_STREQ(xwktest::Get<char *>(desk->form, XtNiconName), "First");
    EXPECT_EQ(xwkCmWidth, 28.0f);

    OpenDesk(desk);
    ASSERT_TRUE(xwktest::WaitViewable(desk->form));
    EXPECT_EQ(xwkParentWidget, desk->form);
    xwktest::Settle();

    // Motif ends the application when its shell is closed by the window
    // manager, so only buttons are pressed here.
    xwktest::ClickCenter(desk->buttons[1]);
    EXPECT_EQ(boxdriver::poll_desk(desk, 200), 2);
    xwktest::ClickCenter(desk->buttons[0]);
    EXPECT_EQ(boxdriver::poll_desk(desk, 200), 1);

    // Destroying the application shell leaves the desk answering -1.
    XtDestroyWidget(desk->form);
    xwktest::Settle();
    int result = 0;
    UseDesk(desk, &result);
    EXPECT_EQ(result, -1);
    CloseDesk(desk);
}
