#include "touchq/MostContacts.h"

namespace touchq {

void MostContacts::add(unsigned fingers)
{
    m_now = fingers;
    if (fingers > m_most) {
        m_most = fingers;
    }
}

}  // namespace touchq
