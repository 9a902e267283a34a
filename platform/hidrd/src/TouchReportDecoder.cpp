#include "hidrd/TouchReportDecoder.h"

#include <algorithm>

#include "hidrd/DescriptorError.h"
#include "hidrd/ReportFields.h"
#include "hidrd/Usages.h"
#include "rawkit/HidUnits.h"

namespace hidrd {

namespace {

std::optional<ReportValue> valueOf(const std::optional<ReportFields::Found>& found)
{
    return found ? std::optional<ReportValue>(found->value) : std::nullopt;
}

std::optional<double> extent(const Field& field)
{
    return rawkit::extentMm(field.physicalMin, field.physicalMax, field.unit, field.unitExponent);
}

}  // namespace

TouchReportDecoder::TouchReportDecoder(const ReportDescriptor& descriptor)
{
    const std::optional<std::size_t> touchpad = descriptor.findTopLevel(usages::kTouchPad);
    if (!touchpad) {
        throw DescriptorError("the descriptor has no touchpad collection (Digitizer page 0x0D, Touch Pad usage 0x05)");
    }
    // The report of the first finger: the first field with an X whose collection also has a Y.
    const Field* firstX = nullptr;
    for (const Field* field : descriptor.inputFields(*touchpad)) {
        if (field->constant() || !ReportFields::carries(*field, usages::kX)) {
            continue;
        }
        if (ReportFields(descriptor, *touchpad, field->reportId).find(usages::kY, field->collection)) {
            firstX = field;
            break;
        }
    }
    if (firstX == nullptr) {
        throw DescriptorError(ReportFields::first(descriptor, *touchpad, usages::kX) == nullptr
                                  ? "its touchpad collection's reports have no X usage"
                                  : "its touchpad collection's reports have no Y usage");
    }
    m_reportId = firstX->reportId;
    m_usesReportIds = descriptor.usesReportIds();
    const ReportFields fields(descriptor, *touchpad, m_reportId);

    // Each collection with both an X and a Y is a finger, in declaration order.
    for (std::size_t c = *touchpad; c < descriptor.collections().size(); ++c) {
        const std::optional<ReportFields::Found> x = fields.find(usages::kX, c);
        const std::optional<ReportFields::Found> y = fields.find(usages::kY, c);
        if (!x || !y) {
            continue;
        }
        const std::optional<ReportFields::Found> id = fields.find(usages::kContactId, c);
        if (m_slots.empty()) {
            m_layout.x = {x->field->logicalMin, x->field->logicalMax};
            m_layout.y = {y->field->logicalMin, y->field->logicalMax};
            m_layout.widthMm = extent(*x->field);
            m_layout.heightMm = extent(*y->field);
            if (const std::optional<ReportFields::Found> width = fields.find(usages::kWidth, c)) {
                m_layout.width = rawkit::ValueRange{width->field->logicalMin, width->field->logicalMax};
            }
            if (id) {
                m_layout.maxContactId = static_cast<std::uint32_t>(std::max(0, id->field->logicalMax));
            }
        }
        m_slots.push_back(Slot{x->value, y->value, valueOf(id), valueOf(fields.find(usages::kTipSwitch, c)),
                               valueOf(fields.find(usages::kConfidence, c)), valueOf(fields.find(usages::kWidth, c)),
                               valueOf(fields.find(usages::kHeight, c)), valueOf(fields.find(usages::kTipPressure, c))});
    }
    m_layout.slots = static_cast<unsigned>(m_slots.size());
    m_contactCount = valueOf(fields.find(usages::kContactCount));
    m_scanTime = valueOf(fields.find(usages::kScanTime));
    std::vector<const Field*> buttons;
    for (const Field* field : fields.fields()) {
        if (!field->usages.empty() && (field->usages.front().min >> 16) == usages::kButtonPage) {
            buttons.push_back(field);
        }
    }
    m_buttons = ButtonReader(buttons);
    m_reportBytes = descriptor.reportBytes(ReportKind::Input, m_reportId);
}

TouchReportDecoder::Outcome TouchReportDecoder::decode(const std::uint8_t* report, std::size_t length,
                                                       rawkit::TouchReport& out) const
{
    if (length == 0 || (m_usesReportIds && report[0] != m_reportId)) {
        return Outcome::OtherReport;
    }
    if (length < m_reportBytes) {
        return Outcome::TooShort;
    }
    const std::uint8_t* payload = m_usesReportIds ? report + 1 : report;
    out.slots.resize(m_slots.size());
    for (std::size_t i = 0; i < m_slots.size(); ++i) {
        const Slot& slot = m_slots[i];
        rawkit::ContactReport& contact = out.slots[i];
        contact.x = slot.x.read(payload);
        contact.y = slot.y.read(payload);
        // Without an id usage a slot is its own contact.
        contact.id = slot.id ? static_cast<std::uint32_t>(slot.id->read(payload)) : static_cast<std::uint32_t>(i);
        contact.tip = slot.tip && slot.tip->read(payload) != 0;
        contact.confidence = !slot.confidence || slot.confidence->read(payload) != 0;
        contact.width = slot.width ? std::optional<std::int32_t>(slot.width->read(payload)) : std::nullopt;
        contact.height = slot.height ? std::optional<std::int32_t>(slot.height->read(payload)) : std::nullopt;
        contact.pressure = slot.pressure ? std::optional<std::int32_t>(slot.pressure->read(payload)) : std::nullopt;
    }
    out.contactCount = m_contactCount ? std::optional<unsigned>(static_cast<unsigned>(
                                            std::max(0, m_contactCount->read(payload))))
                                      : std::nullopt;
    out.scanTime = m_scanTime ? std::optional<std::uint32_t>(static_cast<std::uint32_t>(m_scanTime->read(payload)))
                              : std::nullopt;
    out.buttons = m_buttons.read(payload);
    return Outcome::Decoded;
}

}  // namespace hidrd
