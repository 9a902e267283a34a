#pragma once
// An installed virtual touchpad being fed: each report checked against its collection's reports
// (as the platform's parser reads the descriptor it serves), then handed to the driver.
#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "PadChannel.h"
#include "vhid/PadId.h"
#include "vhid/ReportScript.h"
#include "vhid/ReportShape.h"

class Feeder {
public:
    // Null, with why: no such pad, its descriptor unreadable, or its driver not running.
    static std::unique_ptr<Feeder> connect(const vhid::PadId& id, std::string& error);

    // One report, padded to its collection's length; refused, with why, when it does not fit.
    bool send(const std::vector<std::uint8_t>& report, vhid::ReportShape::Kind kind, std::string& error);

    // The feature report of that id as a program gets it from the device (HidD_GetFeature);
    // nothing, with why, when the device does not answer.
    std::optional<std::vector<std::uint8_t>> getFeature(std::uint8_t reportId, std::string& error) const;

    // The script's reports at their times, `speed` times as fast (0: each as soon as the driver
    // takes it). Every report is checked before the first is sent; reports of ids the collection
    // lacks (a whole device's other collections) are skipped and counted on `out`.
    bool play(const vhid::ReportScript& script, double speed, std::ostream& out, std::string& error);

private:
    Feeder(const vhid::PadId& id, vhid::ReportShape shape, std::unique_ptr<PadChannel> channel);
    bool deliver(const std::vector<std::uint8_t>& report, bool feature, std::string& error);

    vhid::PadId m_id;
    vhid::ReportShape m_shape;
    std::unique_ptr<PadChannel> m_channel;
};
