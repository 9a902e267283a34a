#include "afx/CSize.h"

CSize::CSize() : SIZE{0, 0} {}

CSize::CSize(int initCX, int initCY) : SIZE{initCX, initCY} {}

bool CSize::operator==(SIZE other) const
{
    return cx == other.cx && cy == other.cy;
}

bool CSize::operator!=(SIZE other) const
{
    return !(*this == other);
}
