#include "synaptics.h"

#include "ksx/Log.h"

using harn5::TestResult;

namespace {

ksx::Logger* s_log = nullptr;  // "kstrmouse.synaptics"

constexpr int kLineDialogMissing = 60;

}  // namespace

TestResult runSynapticsTest(const harn5::DiagDevice& /*device*/)
{
    KSX_LOG(s_log, "kstrmouse.synaptics", ksx::LoggerPriority::PRIORITY_WARNING, kLineDialogMissing,
            "touchpad and TrackPoint dialog is not part of this build");
    return TestResult::CANNOTRUN();
}
