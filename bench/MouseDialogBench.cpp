// How much the classic dialog's mouse handlers cost, against the default dialog procedure on the same
// template: both dialogs get the same messages through SendMessage, timed one by one, in one run.
// The classic dialog runs as the host runs it, with the English texts.
#include <windows.h>
#include <ole2.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "HostRun.h"
#include "Timings.h"

namespace {

constexpr UINT kTemplate = 102;     // the classic dialog's template
constexpr int kRounds = 2000;        // messages of each kind per dialog

// Sends `kRounds` times the messages `make(i)` gives to `window`; each send is timed alone.
Timings measure(HWND window, const std::function<std::vector<MSG>(int)>& make)
{
    Timings timings;
    for (int i = 0; i < kRounds; ++i) {
        for (const MSG& m : make(i)) {
            timings.measure(1, [&] { SendMessageW(window, m.message, m.wParam, m.lParam); });
        }
    }
    return timings;
}

MSG message(UINT id, WPARAM w, LPARAM l) { return MSG{nullptr, id, w, l, 0, {}}; }

// A point on the dialog's background, clear of the drag source, in client coordinates.
LPARAM backgroundPoint(HWND dialog)
{
    RECT r;
    GetClientRect(dialog, &r);
    return MAKELPARAM(r.right - 10, r.bottom - 10);
}

struct Workload {
    const char* name;
    bool changesState;
    std::function<std::vector<MSG>(HWND, int)> make;
};

const Workload kWorkloads[] = {
    {"left press and release", true,
     [](HWND d, int) { return std::vector<MSG>{message(WM_LBUTTONDOWN, MK_LBUTTON, backgroundPoint(d)),
                                               message(WM_LBUTTONUP, 0, backgroundPoint(d))}; }},
    {"right press and release", true,
     [](HWND d, int) { return std::vector<MSG>{message(WM_RBUTTONDOWN, MK_RBUTTON, backgroundPoint(d)),
                                               message(WM_RBUTTONUP, 0, backgroundPoint(d))}; }},
    {"middle press and release", true,
     [](HWND d, int) { return std::vector<MSG>{message(WM_MBUTTONDOWN, MK_MBUTTON, backgroundPoint(d)),
                                               message(WM_MBUTTONUP, 0, backgroundPoint(d))}; }},
    {"wheel notch", true,
     [](HWND d, int i) {
         const short delta = (i / 8) % 2 == 0 ? WHEEL_DELTA : -WHEEL_DELTA;
         return std::vector<MSG>{message(WM_MOUSEWHEEL, MAKEWPARAM(0, delta), backgroundPoint(d))};
     }},
    {"message no map handles", false,
     [](HWND, int) { return std::vector<MSG>{message(WM_NULL, 0, 0)}; }},
    {"mouse move, nothing held", false,
     [](HWND d, int) { return std::vector<MSG>{message(WM_MOUSEMOVE, 0, backgroundPoint(d))}; }},
};

INT_PTR CALLBACK plainProc(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

// Runs inside the classic dialog's modal loop: measures both dialogs.
std::string runBenchmark(HWND dialog)
{
    std::string results;
    HWND plain = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kTemplate), nullptr, plainProc, 0);
    for (const Workload& w : kWorkloads) {
        const auto make = [&](HWND target) { return [&, target](int i) { return w.make(target, i); }; };
        const Timings plainTimings = measure(plain, make(plain));
        const Timings dialogTimings = measure(dialog, make(dialog));
        results += Timings::comparison(w.name, dialogTimings, plainTimings, w.changesState ? 20.0 : 2.0);
    }
    DestroyWindow(plain);
    return results;
}

}  // namespace

int wmain()
{
    // The module starts OLE before its tests run; the dialog is its own drop target.
    OleInitialize(nullptr);
    std::string results;
    HostRun run({"--test", "MouseTest", "--device", "Mouse"}, [&results](HWND dialog) { results = runBenchmark(dialog); });
    const bool ran = run.run();
    OleUninitialize();
    if (!ran) {
        return 1;
    }
    std::printf("Classic dialog mouse handlers against the default dialog procedure, %d rounds each:\n%s",
                kRounds, results.c_str());
    return 0;
}
