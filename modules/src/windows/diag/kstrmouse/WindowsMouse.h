#pragma once
#include "Mouse.h"

// The mouse as the system metrics describe it.
class WindowsMouse : public Mouse {
public:
    bool probe() override;
};
