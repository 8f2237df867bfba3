// The module object, on a stand-in of the application framework.
#include "entry/CPlexornApp.h"

#include <gtest/gtest.h>

#include <type_traits>

extern CPlexornApp theApp;

static_assert(std::is_base_of_v<CWinApp, CPlexornApp>);
static_assert(sizeof(CPlexornApp) == sizeof(CWinApp), "it adds no members");

TEST(CPlexornApp, OneIsThereWhenTheModuleIsLoaded)
{
    EXPECT_EQ(CWinApp::constructed, 1);
}

TEST(CPlexornApp, HasNoApplicationName)
{
    EXPECT_EQ(theApp.name, nullptr);
}

TEST(CPlexornApp, InitInstanceCallsTheBasesAndSaysTrueWhateverThatSays)
{
    CWinApp& application = theApp;
    for (const BOOL result : {TRUE, FALSE}) {
        const int before = theApp.initialized;
        theApp.initResult = result;
        EXPECT_EQ(application.InitInstance(), TRUE);
        EXPECT_EQ(theApp.initialized, before + 1);
    }
    theApp.initResult = TRUE;
}

TEST(CPlexornApp, LeavesAllMessagesToItsBase)
{
    const CWinApp& application = theApp;
    EXPECT_NE(&application.GetMessageMap(), &CWinApp::Map());
    EXPECT_EQ(application.GetMessageMap().base, &CWinApp::Map());
}
