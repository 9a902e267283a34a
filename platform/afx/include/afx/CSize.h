#pragma once
// An extent with the framework's conveniences over SIZE.
#include <windows.h>

class CSize : public SIZE {
public:
    CSize();
    CSize(int initCX, int initCY);

    bool operator==(SIZE other) const;
    bool operator!=(SIZE other) const;
};
