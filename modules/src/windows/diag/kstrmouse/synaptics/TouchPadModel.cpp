#include "TouchPadModel.h"

#include <algorithm>
#include <climits>
#include <cstdint>

#include "MarkerGeometry.h"

TouchPadModel::TouchPadModel(bool buttonsShown) : m_buttonsShown(buttonsShown) {}

void TouchPadModel::onPacket(const SynapticsDeviceState& state)
{
    if (state.fingerPresent) {
        m_bFingerSeen = true;
    }
    if (rightPressed(state)) {
        m_bRightSeen = true;
    }
    if (leftPressed(state)) {
        m_bLeftSeen = true;
    }
}

bool TouchPadModel::isTestComplete() const
{
    return m_bFingerSeen && (!m_buttonsShown || (m_bLeftSeen && m_bRightSeen));
}

bool TouchPadModel::leftPressed(const SynapticsDeviceState& state)
{
    return state.leftPressed || state.middlePressed;
}

bool TouchPadModel::rightPressed(const SynapticsDeviceState& state)
{
    return state.rightPressed || state.middlePressed;
}

int TouchPadModel::x(const SynapticsDeviceState& state)
{
    // Wraps like the device's own 32-bit arithmetic instead of overflowing.
    return static_cast<int>(static_cast<std::int64_t>(state.fingerX) - state.xLo);
}

int TouchPadModel::y(const SynapticsDeviceState& state)
{
    return static_cast<int>(static_cast<std::int64_t>(state.yHi) - state.fingerY);
}

bool TouchPadModel::shouldDrawMarker(const SynapticsDeviceState& state) const
{
    return state.fingerMotion || (!m_bFingerWasPresent && state.fingerPresent);
}

void TouchPadModel::notePainted(bool fingerPresent)
{
    m_bFingerWasPresent = fingerPresent;
}

PixelRect TouchPadModel::marker(const SynapticsDeviceState& state)
{
    // A negative width is no size at all; the product cannot overflow in 64 bits.
    const auto size = static_cast<int>(std::clamp<std::int64_t>(8LL * state.fingerWidth, 0, INT_MAX));
    const int half = size / 2;
    const double fx = MarkerGeometry::fraction(state.fingerX, state.xLo, state.xHi);
    const double fy = MarkerGeometry::fraction(state.fingerY, state.yLo, state.yHi);
    return {MarkerGeometry::truncate(fx * kPadWidth - half),
            MarkerGeometry::truncate(kPadHeight - fy * kPadHeight - half), size, size};
}
