// The module's registrations run before its application object is constructed, whatever order
// the linker gives the translation units.
#include <gtest/gtest.h>

#include "KstrMouse.h"

TEST(StartUp, EveryRegistrationRunsBeforeTheApplicationObject)
{
    EXPECT_EQ(AfxGetApp(), &theApp);
    EXPECT_TRUE(theApp.registeredFirst());
}
