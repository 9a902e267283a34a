// What the click test's mouse handlers cost, against the default dialog procedure on the same
// template, in one run. A press and release that completes a step can happen once per run, so
// the click test runs many times as the host runs it (MouseInteractiveTest, English texts): in
// each run the left click of step 1 and the right click of step 2 are timed message by message,
// then mouse moves with no button held and a message no handler takes.
#include <windows.h>

#include <cstdio>
#include <functional>

#include "HostRun.h"
#include "Timings.h"
#include "ksxui/GdiResourceManager.h"
#include "resource.h"

namespace {

constexpr int kRuns = 100;
constexpr int kIdleRounds = 20;   // per run

struct Workload {
    const char* name;
    bool changesState;
    Timings clickTest;
    Timings plain;
};

Workload g_left{"left press and release", true, {}, {}};
Workload g_right{"right press and release", true, {}, {}};
Workload g_move{"mouse move, nothing held", false, {}, {}};
Workload g_unhandled{"message no map handles", false, {}, {}};

INT_PTR CALLBACK plainProc(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

// Where the click test takes clicks: clear of every control a step looks at.
LPARAM plainPoint(HWND dialog)
{
    RECT client{};
    GetClientRect(dialog, &client);
    return MAKELPARAM(client.right / 8, client.bottom * 3 / 4);
}

// Each message of the pair timed alone.
void press(Timings& timings, HWND window, UINT down, WPARAM held)
{
    const LPARAM at = plainPoint(window);
    timings.measure(1, [&] { SendMessageW(window, down, held, at); });
    timings.measure(1, [&] { SendMessageW(window, down + 1, 0, at); });
}

void idle(Timings& moves, Timings& unhandled, HWND window)
{
    const LPARAM at = plainPoint(window);
    moves.measure(kIdleRounds, [&] { SendMessageW(window, WM_MOUSEMOVE, 0, at); });
    unhandled.measure(kIdleRounds, [&] { SendMessageW(window, WM_NULL, 0, 0); });
}

void runOnce(HWND clickTest, HWND plain)
{
    press(g_left.clickTest, clickTest, WM_LBUTTONDOWN, MK_LBUTTON);
    press(g_left.plain, plain, WM_LBUTTONDOWN, MK_LBUTTON);
    press(g_right.clickTest, clickTest, WM_RBUTTONDOWN, MK_RBUTTON);
    press(g_right.plain, plain, WM_RBUTTONDOWN, MK_RBUTTON);
    idle(g_move.clickTest, g_unhandled.clickTest, clickTest);
    idle(g_move.plain, g_unhandled.plain, plain);
}

}  // namespace

int wmain()
{
    const GdiResourceManager gdiplus;
    const HWND plain = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_MOUSE_CLICK_TEST), nullptr,
                                          &plainProc, 0);
    for (int run = 0; run < kRuns; ++run) {
        HostRun host({"--test", "MouseInteractiveTest", "--device", "Mouse"},
                     [plain](HWND clickTest) { runOnce(clickTest, plain); });
        if (!gdiplus.IsStarted() || plain == nullptr || !host.run()) {
            std::fprintf(stderr, "Click-test input bench: run %d measured nothing\n", run + 1);
            return 1;
        }
    }
    DestroyWindow(plain);
    std::printf("Click-test dialog mouse handlers against the default dialog procedure, %d runs:\n", kRuns);
    for (const Workload* w : {&g_left, &g_right, &g_move, &g_unhandled}) {
        std::printf("%s", Timings::comparison(w->name, w->clickTest, w->plain, w->changesState ? 20.0 : 2.0).c_str());
    }
    return 0;
}
