#include "TrackpointModel.h"

#include "MarkerGeometry.h"

namespace {
constexpr double kMarkerHalf = 22.0;
constexpr int kButtonRowOffset = 45;     // the left and right buttons' top, from the bottom
constexpr int kCenterRaise = 13;
}  // namespace

TrackpointModel::TrackpointModel(bool bThreeButtonDisplay) : m_bThreeButtonDisplay(bThreeButtonDisplay) {}

void TrackpointModel::onPacket(const SynapticsDeviceState& state)
{
    if (state.stickX != 0 || state.stickY != 0) {
        m_bMoved = true;
    }
    if (state.rightPressed) {
        m_bRightSeen = true;
    }
    if (state.leftPressed) {
        m_bLeftSeen = true;
    }
    if (state.middlePressed) {
        m_bMiddleSeen = true;
    }
}

bool TrackpointModel::isTestComplete() const
{
    if (m_bThreeButtonDisplay) {
        return m_bMoved && m_bRightSeen && m_bLeftSeen && m_bMiddleSeen;
    }
    return m_bMoved;
}

PixelRect TrackpointModel::drawingArea(int width, int height)
{
    return {0, 0, width, height - kButtonRowHeight};
}

PixelRect TrackpointModel::marker(const SynapticsDeviceState& state, int width, int height)
{
    const double areaHeight = height - kButtonRowHeight;
    const double fx = MarkerGeometry::fraction(state.stickX, state.xLo, state.xHi);
    const double fy = MarkerGeometry::fraction(state.stickY, state.yLo, state.yHi);
    return {MarkerGeometry::truncate(width * fx - kMarkerHalf),
            MarkerGeometry::truncate(areaHeight - areaHeight * fy - kMarkerHalf), kMarkerSize, kMarkerSize};
}

PixelRect TrackpointModel::leftButton(int /*width*/, int height)
{
    return {1, height - kButtonRowOffset, kButtonWidth, kButtonHeight};
}

PixelRect TrackpointModel::centerButton(int width, int height)
{
    return {(width - kButtonWidth) / 2, height - kButtonRowOffset - kCenterRaise, kButtonWidth, kButtonHeight};
}

PixelRect TrackpointModel::rightButton(int width, int height)
{
    return {width - kButtonWidth - 1, height - kButtonRowOffset, kButtonWidth, kButtonHeight};
}
