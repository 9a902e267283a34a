#include "padkit/SessionFileSource.h"

#include "padkit/SessionParser.h"

namespace padkit {

SessionFileSource::SessionFileSource(const std::filesystem::path& file)
{
    const std::string name = SessionParser::open(file, m_in);
    m_reader = std::make_unique<SessionReader>(m_in, name);
}

const rawkit::TouchFrame* SessionFileSource::frame() const
{
    return m_reader->frame() ? &*m_reader->frame() : nullptr;
}

}  // namespace padkit
