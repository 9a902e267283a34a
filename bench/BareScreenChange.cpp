// The yardstick of the screen-latency bench: plain Win32 windows that each make one visible change
// for one kind of input, the way a program with no framework would (state, InvalidateRect, the
// whole window filled in WM_PAINT).
//   bare_screen_change KIND X Y WIDTH HEIGHT [KIND X Y WIDTH HEIGHT ...]
// opens one borderless window per group at X,Y (screen pixels), WIDTH x HEIGHT. Kinds:
//   press  left press (or a quick second press) fills it dark, the release light again
//   wheel  each wheel notch fills it in the colour of its direction
//   face   each double click swaps its colour; a single click changes nothing
//   step   any button's press fills it dark, its release in the next of two colours
// The windows never become active. It runs until it is ended or one of its windows is closed.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <memory>
#include <vector>

namespace {

constexpr COLORREF kLight = RGB(240, 240, 240);
constexpr COLORREF kDark = RGB(40, 60, 140);
constexpr COLORREF kFirst = RGB(60, 170, 70);
constexpr COLORREF kSecond = RGB(200, 70, 50);

enum class Kind { Press, Wheel, Face, Step };

// One window's picture: a colour that input changes.
struct Change {
    Kind kind;
    COLORREF colour = kLight;
    bool second = false;   // which of the two colours of a face or a step shows
};

// BeginPaint and EndPaint, paired.
class PaintScope {
public:
    explicit PaintScope(HWND window) : m_window(window), m_dc(BeginPaint(window, &m_paint)) {}
    ~PaintScope() { EndPaint(m_window, &m_paint); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;
    HDC dc() const { return m_dc; }
    const RECT& area() const { return m_paint.rcPaint; }

private:
    HWND m_window;
    PAINTSTRUCT m_paint{};
    HDC m_dc;
};

COLORREF nextOfTwo(Change& change)
{
    change.second = !change.second;
    return change.second ? kSecond : kFirst;
}

// The new colour for `message`, or false when this kind does not change for it.
bool react(Change& change, UINT message, WPARAM wParam)
{
    const bool press = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDOWN ||
                       message == WM_RBUTTONDBLCLK || message == WM_MBUTTONDOWN || message == WM_MBUTTONDBLCLK;
    const bool release = message == WM_LBUTTONUP || message == WM_RBUTTONUP || message == WM_MBUTTONUP;
    switch (change.kind) {
    case Kind::Press:
        if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_LBUTTONUP) {
            change.colour = message == WM_LBUTTONUP ? kLight : kDark;
            return true;
        }
        return false;
    case Kind::Wheel:
        if (message == WM_MOUSEWHEEL) {
            change.colour = GET_WHEEL_DELTA_WPARAM(wParam) > 0 ? kFirst : kSecond;
            return true;
        }
        return false;
    case Kind::Face:
        if (message == WM_LBUTTONDBLCLK) {
            change.colour = nextOfTwo(change);
            return true;
        }
        return false;
    case Kind::Step:
        if (press || release) {
            change.colour = press ? kDark : nextOfTwo(change);
            return true;
        }
        return false;
    }
    return false;
}

LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* change = reinterpret_cast<Change*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (change == nullptr) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (message == WM_PAINT) {
        const PaintScope paint(window);
        SetDCBrushColor(paint.dc(), change->colour);
        FillRect(paint.dc(), &paint.area(), static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        return 0;
    }
    // The dialog it takes turns with stays the active window, as it is while a user works in it.
    if (message == WM_MOUSEACTIVATE) {
        return MA_NOACTIVATE;
    }
    if (message == WM_DESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        PostQuitMessage(0);
        return 0;
    }
    if (react(*change, message, wParam)) {
        InvalidateRect(window, nullptr, FALSE);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

bool kindNamed(const wchar_t* name, Kind& kind)
{
    static const struct {
        const wchar_t* name;
        Kind kind;
    } kinds[] = {{L"press", Kind::Press}, {L"wheel", Kind::Wheel}, {L"face", Kind::Face}, {L"step", Kind::Step}};
    for (const auto& known : kinds) {
        if (std::wcscmp(name, known.name) == 0) {
            kind = known.kind;
            return true;
        }
    }
    return false;
}

bool positive(const wchar_t* text, int& value)
{
    wchar_t* end = nullptr;
    const long parsed = std::wcstol(text, &end, 10);
    value = static_cast<int>(parsed);
    return end != text && *end == L'\0' && parsed >= 0 && parsed <= 100000;
}

}  // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc < 6 || (argc - 1) % 5 != 0) {
        std::fputs("usage: bare_screen_change KIND X Y WIDTH HEIGHT [KIND X Y WIDTH HEIGHT ...]\n", stderr);
        return 2;
    }
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSW windowClass{};
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = &windowProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = L"BareScreenChange";
    if (RegisterClassW(&windowClass) == 0) {
        std::fputs("bare_screen_change: cannot register the window class\n", stderr);
        return 1;
    }
    std::vector<std::unique_ptr<Change>> changes;
    for (int i = 1; i < argc; i += 5) {
        Kind kind{};
        int place[4] = {};
        bool valid = kindNamed(argv[i], kind);
        for (int n = 0; n < 4 && valid; ++n) {
            valid = positive(argv[i + 1 + n], place[n]) && (n < 2 || place[n] > 0);
        }
        if (!valid) {
            std::fprintf(stderr, "bare_screen_change: bad window \"%ls %ls %ls %ls %ls\"\n", argv[i], argv[i + 1],
                         argv[i + 2], argv[i + 3], argv[i + 4]);
            return 2;
        }
        changes.push_back(std::make_unique<Change>(Change{kind}));
        const HWND window = CreateWindowExW(WS_EX_NOACTIVATE, windowClass.lpszClassName, argv[i], WS_POPUP | WS_VISIBLE,
                                            place[0], place[1], place[2], place[3], nullptr, nullptr, instance,
                                            changes.back().get());
        if (window == nullptr) {
            std::fputs("bare_screen_change: cannot create a window\n", stderr);
            return 1;
        }
    }
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
