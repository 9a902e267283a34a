#include "hidrd/MouseReportDecoder.h"

#include "hidrd/DescriptorError.h"
#include "hidrd/ReportFields.h"
#include "hidrd/Usages.h"

namespace hidrd {

MouseReportDecoder::MouseReportDecoder(const ReportDescriptor& descriptor)
    : m_usesReportIds(descriptor.usesReportIds())
{
    m_byReportId.fill(-1);
    for (const std::size_t top : descriptor.topLevel()) {
        const Usage kind = descriptor.collections()[top].usage;
        if (kind != usages::kMouse && kind != usages::kPointer) {
            continue;
        }
        const Field* x = ReportFields::first(descriptor, top, usages::kX);
        // Without report ids only one collection's reports can be told apart: the first mouse's.
        if (x == nullptr || m_byReportId[x->reportId] >= 0) {
            continue;
        }
        const ReportFields fields(descriptor, top, x->reportId);
        const std::optional<ReportFields::Found> foundX = fields.find(usages::kX);
        const std::optional<ReportFields::Found> foundY = fields.find(usages::kY);
        if (!foundY) {
            continue;
        }
        Mouse mouse;
        mouse.reportBytes = descriptor.reportBytes(ReportKind::Input, x->reportId);
        mouse.x = foundX->value;
        mouse.y = foundY->value;
        mouse.absolute = !foundX->field->relative();
        if (const std::optional<ReportFields::Found> wheel = fields.find(usages::kWheel)) {
            mouse.wheel = wheel->value;
        }
        if (const std::optional<ReportFields::Found> pan = fields.find(usages::kAcPan)) {
            mouse.hwheel = pan->value;
        }
        std::vector<const Field*> buttons;
        for (const Field* field : fields.fields()) {
            if (!field->usages.empty() && (field->usages.front().min >> 16) == usages::kButtonPage) {
                buttons.push_back(field);
            }
        }
        mouse.buttons = ButtonReader(buttons);
        m_byReportId[x->reportId] = static_cast<std::int16_t>(m_mice.size());
        m_mice.push_back(std::move(mouse));
    }
    if (m_mice.empty()) {
        throw DescriptorError("the descriptor has no mouse collection with X and Y (Generic Desktop page 0x01, "
                              "Mouse usage 0x02 or Pointer 0x01)");
    }
}

MouseReportDecoder::Outcome MouseReportDecoder::decode(const std::uint8_t* report, std::size_t length,
                                                       MouseSample& out) const
{
    if (length == 0) {
        return Outcome::OtherReport;
    }
    const std::int16_t index = m_byReportId[m_usesReportIds ? report[0] : 0];
    if (index < 0) {
        return Outcome::OtherReport;
    }
    const Mouse& mouse = m_mice[static_cast<std::size_t>(index)];
    if (length < mouse.reportBytes) {
        return Outcome::TooShort;
    }
    const std::uint8_t* payload = m_usesReportIds ? report + 1 : report;
    out.x = mouse.x.read(payload);
    out.y = mouse.y.read(payload);
    out.wheel = mouse.wheel ? mouse.wheel->read(payload) : 0;
    out.hwheel = mouse.hwheel ? mouse.hwheel->read(payload) : 0;
    out.buttons = mouse.buttons.read(payload);
    out.absolute = mouse.absolute;
    return Outcome::Decoded;
}

}  // namespace hidrd
