#include "keptplace.h"

#include "copiedbytes.h"

#include <fcntl.h>
#include <unistd.h>

KeptPlace::KeptPlace(const QByteArray &path, const QString &name)
    : m_name(name)
    , m_file(open(path.constData(), O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK))
{
    if (!m_file.isOpen())
        plainio::throwErrno(name);
}

void KeptPlace::write(int content)
{
    const QString folder = plainio::temporaryFolder(); // asked for before errno counts
    m_earlier = plainio::unnamedFile();
    if (!copiedbytes::copy(m_file.number(), m_earlier.number()))
        plainio::throwErrno(folder);
    m_guard = std::make_unique<Leftover>(m_earlier.number(), m_file.number());
    if (!copiedbytes::copy(content, m_file.number()) || fsync(m_file.number()) != 0)
        plainio::throwErrno(m_name);
}

void KeptPlace::release()
{
    if (m_guard != nullptr)
        m_guard->release();
}
