#include "rawkit/ContactTracker.h"

#include <algorithm>

namespace rawkit {

void ContactTracker::apply(const TouchFrame& frame)
{
    const auto inFrame = [&frame](std::uint32_t id) {
        return std::any_of(frame.contacts.begin(), frame.contacts.end(),
                           [id](const ContactReport& contact) { return contact.id == id && contact.tip; });
    };
    // Contacts the frame no longer has, or has with the tip clear, have lifted.
    std::erase_if(m_fingers, [&](const Finger& finger) { return !inFrame(finger.contact.id); });
    std::erase_if(m_palms, [&](std::uint32_t id) { return !inFrame(id); });

    bool palm = false;
    for (const ContactReport& contact : frame.contacts) {
        if (!contact.tip) {
            continue;
        }
        const bool knownPalm = std::find(m_palms.begin(), m_palms.end(), contact.id) != m_palms.end();
        auto finger = std::find_if(m_fingers.begin(), m_fingers.end(),
                                   [&contact](const Finger& f) { return f.contact.id == contact.id; });
        if (knownPalm || !contact.confidence) {
            // Once rejected, a contact stays a palm until it lifts, as the platform treats it.
            if (finger != m_fingers.end()) {
                m_fingers.erase(finger);
            }
            if (!knownPalm) {
                m_palms.push_back(contact.id);
            }
            palm = true;
        } else if (finger != m_fingers.end()) {
            finger->contact = contact;
        } else {
            m_fingers.push_back(Finger{contact, frame.timeUs});
        }
    }
    if (palm) {
        ++m_palmFrames;
    }
}

}  // namespace rawkit
