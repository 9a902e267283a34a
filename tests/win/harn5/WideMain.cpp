// The Windows build links with -municode, so the C runtime starts at wmain, which gtest_main lacks.
#include <gtest/gtest.h>

int wmain(int argc, wchar_t** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
