#include "ChecksNotDone.h"

#include "Registration.h"

namespace {

// Source line of the events of checks not done; hosts match on it.
constexpr int kLineCheckNotDone = 430;

std::wstring Text(const harn5::LocalizedString* key)
{
    return reinterpret_cast<const wchar_t*>(key->localizedString().getUCS2Buffer());
}

}  // namespace

ChecksNotDone::ChecksNotDone(const Mouse& mouse, bool doubleClickDone, bool dragDropDone)
{
    namespace params = kstrmouse::params;
    MissingChecks::Demands demands;
    demands.doubleClick = params::bRequireDoubleClick->value().valueBool();
    demands.dragAndDrop = params::bRequireDragAndDrop->value().valueBool();
    demands.leftClick = params::bRequireLeftClick->value().valueBool();
    demands.rightClick = params::bRequireRightClick->value().valueBool();
    demands.allControls = params::bRequireAllButtons->value().valueBool();
    demands.sideButtons = params::bRequireSideButtons->value().valueBool();
    m_checks = MissingChecks::of(demands, mouse, doubleClickDone, dragDropDone);
}

std::wstring ChecksNotDone::line() const
{
    using namespace kstrmouse::texts;
    static const harn5::LocalizedString* const* const names[] = {
        &MsgMouseCheckLeftButton, &MsgMouseCheckRightButton, &MsgMouseCheckMiddleButton,
        &MsgMouseCheckWheel,      &MsgMouseCheckTiltLeft,    &MsgMouseCheckTiltRight,
        &MsgMouseCheckBackButton, &MsgMouseCheckForwardButton, &MsgMouseCheckDoubleClick,
        &MsgMouseCheckDragAndDrop};
    std::wstring line;
    for (const MissingChecks::Check check : m_checks) {
        line += line.empty() ? Text(MsgMouseStillToDo) + L" " : std::wstring(L", ");
        line += Text(*names[check]);
    }
    return line;
}

void ChecksNotDone::report() const
{
    using namespace kstrmouse::events;
    static harn5::Event* const* const events[] = {
        &LEFT_MOUSE_CLICK_NOT_RECEIVED, &RIGHT_MOUSE_CLICK_NOT_RECEIVED, &SCROLL_WHEEL_MOUSE_CLICK_NOT_RECEIVED,
        &MOUSE_WHEEL_NOT_RECEIVED,      &MOUSE_TILT_NOT_RECEIVED,        &MOUSE_TILT_NOT_RECEIVED,
        &FIRST_SIDE_MOUSE_BUTTON_NOT_RECEIVED, &SECOND_SIDE_MOUSE_BUTTON_NOT_RECEIVED, &MOUSE_DOUBLE_CLICK_NOT_RECEIVED,
        &MOUSE_DRAG_NOT_RECEIVED};
    const harn5::Event* previous = nullptr;
    for (const MissingChecks::Check check : m_checks) {
        if (*events[check] != previous) {
            harn5::DiagModule::error(*events[check], "KstrMouseDlg", kLineCheckNotDone);
        }
        previous = *events[check];
    }
}
