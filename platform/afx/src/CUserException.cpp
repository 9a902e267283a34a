#include "afx/CUserException.h"

const char* CUserException::what() const noexcept
{
    return "data exchange failed";
}
