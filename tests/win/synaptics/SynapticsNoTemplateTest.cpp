// A process whose resources lack the dialog template: the entry logs why and keeps its result.
#include <gtest/gtest.h>

#include "SynapticsHarness.h"
#include "SynapticsSessions.h"

namespace {

using namespace syntest;

TEST(NoTemplate, FirstRunIsInternalErrorWithTheSystemErrorCode)
{
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    for (int run = 0; run < 2; ++run) {
        const Outcome outcome =
            runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", "SP_Handle=" + std::to_string(h))});
        EXPECT_FALSE(outcome.dialogSeen);
        EXPECT_EQ(outcome.verdict, harn5::TestResult::INTERNALERROR()) << "run " << run;
        const std::string prefix = "kstrmouse.synaptics 4 97 Failed to load dialog with error ";
        std::string line;
        for (const std::string& each : outcome.log) {
            line = each.rfind(prefix, 0) == 0 ? each : line;
        }
        ASSERT_FALSE(line.empty());
        // What the system says when asked for the template itself.
        ::SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(::FindResourceW(nullptr, MAKEINTRESOURCEW(1053), MAKEINTRESOURCEW(5)), nullptr);
        const DWORD expected = ::GetLastError();
        EXPECT_NE(expected, static_cast<DWORD>(ERROR_SUCCESS));
        EXPECT_EQ(std::stoul(line.substr(prefix.size())), expected) << line;
    }
}

}  // namespace
