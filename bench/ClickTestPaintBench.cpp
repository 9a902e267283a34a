// What one full repaint of the click-test dialog costs, against the same template painted by the
// default dialog procedure alone, in one run. A repaint invalidates the whole client area with
// erase and paints it at once (InvalidateRect + UpdateWindow): the dialog's background, its GDI+
// texts and every visible child, the picture controls included. The click test runs as the host
// runs it (MouseInteractiveTest, English texts) and is measured at its first step.
#include <windows.h>

#include <cstdio>

#include "HostRun.h"
#include "Timings.h"
#include "ksxui/GdiResourceManager.h"
#include "resource.h"

namespace {

constexpr int kRounds = 500;
constexpr int kWarmUpRounds = 20;

struct Figures {
    Timings timings;
    int windowsPainted = 0;
};

INT_PTR CALLBACK plainProc(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

void repaint(HWND dialog)
{
    InvalidateRect(dialog, nullptr, TRUE);
    UpdateWindow(dialog);
}

int g_paints = 0;

LRESULT CALLBACK countPaint(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HC_ACTION && reinterpret_cast<const CWPSTRUCT*>(lParam)->message == WM_PAINT) {
        ++g_paints;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// The dialog and children one repaint paints, counted on a repaint of its own (the hook stays
// out of the timed ones).
int windowsPainted(HWND dialog)
{
    g_paints = 0;
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, &countPaint, nullptr, GetCurrentThreadId());
    repaint(dialog);
    UnhookWindowsHookEx(hook);
    return g_paints;
}

void measure(HWND dialog, Figures& figures)
{
    for (int i = 0; i < kWarmUpRounds; ++i) {
        repaint(dialog);
    }
    figures.windowsPainted = windowsPainted(dialog);
    figures.timings.measure(kRounds, [dialog] { repaint(dialog); });
}

// Inside the click test's modal loop: the plain dialog first, laid over the click test so that
// all of it shows, then the click test once nothing covers it.
void runBenchmark(HWND clickTest, Figures& clickTestFigures, Figures& plainFigures)
{
    RECT place;
    GetWindowRect(clickTest, &place);
    const HWND plain = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_MOUSE_CLICK_TEST), nullptr,
                                          &plainProc, 0);
    if (plain == nullptr) {
        return;
    }
    SetWindowPos(plain, HWND_TOP, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_SHOWWINDOW);
    measure(plain, plainFigures);
    DestroyWindow(plain);
    measure(clickTest, clickTestFigures);
}

void print(const char* name, const Figures& figures)
{
    std::printf("  %-44s %8.1f us (p99 %8.1f us)  %2d windows painted\n", name, figures.timings.mean(),
                figures.timings.p99(), figures.windowsPainted);
}

}  // namespace

int wmain()
{
    // The click test draws its texts and pictures with GDI+; the host leaves starting it to the module.
    const GdiResourceManager gdiplus;
    Figures clickTest;
    Figures plain;
    HostRun run({"--test", "MouseInteractiveTest", "--device", "Mouse"},
                [&](HWND dialog) { runBenchmark(dialog, clickTest, plain); });
    if (!gdiplus.IsStarted() || !run.run() || clickTest.timings.count() == 0) {
        std::fprintf(stderr, "Click-test paint bench: nothing measured (GDI+ %s)\n",
                     gdiplus.IsStarted() ? "started" : "did not start");
        return 1;
    }
    std::printf("Click-test dialog, one full repaint (whole client area invalidated with erase, then UpdateWindow), "
                "%d rounds each:\n", kRounds);
    print("click test, step 1, English texts", clickTest);
    print("default dialog procedure, same template", plain);
    std::printf("  ratio %.2f (means), %.2f (p99)\n", clickTest.timings.mean() / plain.timings.mean(),
                clickTest.timings.p99() / plain.timings.p99());
    return 0;
}
