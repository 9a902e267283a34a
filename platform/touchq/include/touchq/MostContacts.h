#pragma once
// The most fingers a pad has reported down at once; palms never count. A pad that loses its
// third finger never gets past two, and three-finger gestures stop working on it.
namespace touchq {

class MostContacts {
public:
    // The fingers down after a frame.
    void add(unsigned fingers);

    unsigned now() const { return m_now; }
    unsigned most() const { return m_most; }

private:
    unsigned m_now = 0;
    unsigned m_most = 0;
};

}  // namespace touchq
