// How much the classic dialog's mouse handlers cost, against the default dialog procedure on the same
// template: both dialogs get the same messages through SendMessage, timed one by one, in one run.
#include <windows.h>
#include <ole2.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "KstrMouseDlg.h"

namespace {

constexpr UINT kTemplate = 102;     // the classic dialog's template
constexpr int kRounds = 2000;        // messages of each kind per dialog
constexpr UINT_PTR kStartTimer = 4711;

struct Figures {
    double mean = 0;
    double p99 = 0;
};

double ticksPerMicrosecond()
{
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(frequency.QuadPart) / 1e6;
}

// Sends `rounds` times the messages `make(i)` gives to `window`; each send is timed alone.
Figures measure(HWND window, const std::function<std::vector<MSG>(int)>& make)
{
    std::vector<double> costs;
    const double perMicro = ticksPerMicrosecond();
    for (int i = 0; i < kRounds; ++i) {
        for (const MSG& m : make(i)) {
            LARGE_INTEGER before, after;
            QueryPerformanceCounter(&before);
            SendMessageW(window, m.message, m.wParam, m.lParam);
            QueryPerformanceCounter(&after);
            costs.push_back(static_cast<double>(after.QuadPart - before.QuadPart) / perMicro);
        }
    }
    std::sort(costs.begin(), costs.end());
    Figures f;
    for (double c : costs) {
        f.mean += c;
    }
    f.mean /= static_cast<double>(costs.size());
    f.p99 = costs[costs.size() * 99 / 100];
    return f;
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

std::string g_results;

void report(const Workload& w, const Figures& dialog, const Figures& plain)
{
    char line[256];
    const double aim = w.changesState ? 20.0 : 2.0;
    const double ratio = dialog.mean / plain.mean;
    std::snprintf(line, sizeof line, "%-26s %7.2f us (p99 %7.2f)  default %6.2f us (p99 %6.2f)  ratio %5.2f  aim <= %4.1f  %s\n",
                  w.name, dialog.mean, dialog.p99, plain.mean, plain.p99, ratio, aim, ratio <= aim ? "met" : "MISSED");
    g_results += line;
}

INT_PTR CALLBACK plainProc(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

// Runs inside the classic dialog's modal loop: measures both dialogs, then closes it.
void CALLBACK runBenchmark(HWND, UINT, UINT_PTR id, DWORD)
{
    KillTimer(nullptr, id);
    HWND dialog = GetActiveWindow();
    HWND plain = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kTemplate), nullptr, plainProc, 0);
    for (const Workload& w : kWorkloads) {
        const auto make = [&](HWND target) { return [&, target](int i) { return w.make(target, i); }; };
        const Figures plainFigures = measure(plain, make(plain));
        const Figures dialogFigures = measure(dialog, make(dialog));
        report(w, dialogFigures, plainFigures);
    }
    DestroyWindow(plain);
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

}  // namespace

int wmain()
{
    OleInitialize(nullptr);
    SetTimer(nullptr, kStartTimer, 300, runBenchmark);
    {
        CKstrMouseDlg dialog(nullptr);
        dialog.DoModal();
    }
    OleUninitialize();
    std::printf("Classic dialog mouse handlers against the default dialog procedure, %d rounds each:\n%s",
                kRounds, g_results.c_str());
    return 0;
}
