#include "harn5/DataType.h"

namespace harn5 {

DataType::DataType(Kind kind) : m_kind(kind) {}

const DataType& DataType::BOOLEAN()
{
    static const DataType type(Kind::Boolean);
    return type;
}

const DataType& DataType::UINT32()
{
    static const DataType type(Kind::Uint32);
    return type;
}

const DataType& DataType::STRINGARRAY()
{
    static const DataType type(Kind::StringArray);
    return type;
}

DataType::Kind DataType::kind() const
{
    return m_kind;
}

const char* DataType::name() const
{
    switch (m_kind) {
    case Kind::Boolean: return "BOOLEAN";
    case Kind::Uint32: return "UINT32";
    case Kind::StringArray: return "STRINGARRAY";
    }
    return "?";
}

bool DataType::operator==(const DataType& other) const
{
    return m_kind == other.m_kind;
}

}  // namespace harn5
