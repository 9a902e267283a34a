#pragma once
// Drives the classic mouse dialog from inside its own modal loop: a script runs on a thread
// timer once the dialog shows, sends it real messages and reads the controls back.
#include <windows.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "ImportOverride.h"
#include "harn5/EventRecord.h"
#include "harn5/Parameter.h"
#include "harn5/RunRecord.h"
#include "harn5/TestResult.h"

namespace mousetest {

// The innermost modal dialog of the thread, seen through its controls.
class Dialog {
public:
    explicit Dialog(HWND hWnd) : m_hWnd(hWnd) {}

    HWND hwnd() const { return m_hWnd; }
    HWND Item(int id) const { return ::GetDlgItem(m_hWnd, id); }
    bool Visible(int id) const { return ::IsWindowVisible(Item(id)) != FALSE; }
    bool Enabled(int id) const { return ::IsWindowEnabled(Item(id)) != FALSE; }
    std::wstring Text(int id) const;
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // BN_CLICKED as the button itself reports it.
    void Click(int id) const;
    // The centre of a control in screen coordinates.
    POINT Centre(int id) const;

private:
    HWND m_hWnd;
};

using Script = std::function<void(Dialog&)>;

// Runs the script inside the next modal loop of this thread once its dialog shows; the carrying
// timer goes with this object if no loop ran it.
class NextModalLoop {
public:
    explicit NextModalLoop(Script script);
    ~NextModalLoop();
    NextModalLoop(const NextModalLoop&) = delete;
    NextModalLoop& operator=(const NextModalLoop&) = delete;

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR id, DWORD);
    UINT_PTR m_id;
};

// Dispatches this thread's messages until done() holds or timeoutMs pass; answers done().
bool PumpUntil(const std::function<bool()>& done, DWORD timeoutMs = 3000);

// Runs CKstrMouseDlg modally outside a host run (cancelled after the script unless it ended it)
// and answers its verdict. OLE is initialised first unless the caller leaves it.
enum class Ole { Initialise, Leave };
harn5::TestResult RunMouseDialog(const Script& script, Ole ole = Ole::Initialise);
bool OleInitialised();

// Runs a registered test through the host on a described mouse with English texts.
harn5::RunRecord RunTestInHost(const std::string& test, const std::vector<std::string>& options,
                               const Script& script);
harn5::RunRecord RunMouseTestInHost(const std::vector<std::string>& options, const Script& script);

// Events recorded outside any run: a mark, and what came after it.
std::size_t ModuleEventCount();
std::vector<harn5::EventRecord> ModuleEventsSince(std::size_t mark);
// The same, each as "name severity file line".
std::vector<std::string> ModuleEventLinesSince(std::size_t mark);

// Sets boolean parameters to true for the scope.
class ParamsTrue {
public:
    ParamsTrue(std::initializer_list<harn5::Parameter*> parameters);
    ~ParamsTrue();
    ParamsTrue(const ParamsTrue&) = delete;
    ParamsTrue& operator=(const ParamsTrue&) = delete;

private:
    std::vector<harn5::Parameter*> m_parameters;
};

// Makes the module's GetSystemMetrics answer `value` for `index` for the scope, by replacing
// the executable's import of it.
class SystemMetricsOverride {
public:
    SystemMetricsOverride(int index, int value);
    ~SystemMetricsOverride();
    SystemMetricsOverride(const SystemMetricsOverride&) = delete;
    SystemMetricsOverride& operator=(const SystemMetricsOverride&) = delete;

private:
    ImportOverride<int(WINAPI*)(int)> m_import;
};

// The folder the tests run in: the build's bin, where the shipped pictures are.
std::wstring ShippedPicturesFolder();

// Makes the core library report Windows 10 PE for the scope.
class Windows10PEScope {
public:
    Windows10PEScope();
    ~Windows10PEScope();
    Windows10PEScope(const Windows10PEScope&) = delete;
    Windows10PEScope& operator=(const Windows10PEScope&) = delete;
};

}  // namespace mousetest
