#include "PauseRecorder.h"

#include <utility>

#include "Registration.h"

using SleepFn = void(WINAPI*)(DWORD);
extern "C" SleepFn __imp_Sleep;

namespace clicktest {

namespace {

PauseRecorder* s_recorder = nullptr;   // the one in scope

}  // namespace

PauseRecorder::PauseRecorder(std::function<void()> during)
    : m_import(__imp_Sleep, &PauseRecorder::Record), m_during(std::move(during))
{
    s_recorder = this;
}

PauseRecorder::~PauseRecorder()
{
    s_recorder = nullptr;
}

void WINAPI PauseRecorder::Record(DWORD ms)
{
    s_recorder->m_pauses.push_back(kstrmouse::texts::MOUSE_INTERACTIVE_TEST_INDEX->localizedString().utf8() + " " +
                                   std::to_string(ms));
    if (s_recorder->m_during) {
        s_recorder->m_during();
    }
}

}  // namespace clicktest
