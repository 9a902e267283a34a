#pragma once
// Thrown by CDataExchange::Fail; UpdateData turns it into FALSE.
#include <exception>

class CUserException : public std::exception {
public:
    const char* what() const noexcept override;
};
