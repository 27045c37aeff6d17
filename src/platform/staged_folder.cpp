#include "platform/staged_folder.h"

#include "platform/atomic_file.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// A name that nothing in @p folder has.
QByteArray freeName(const FolderHandle &folder)
{
    const QByteArray base =
        atomic_file::unfinishedPrefix.toUtf8() + QByteArray::number(QCoreApplication::applicationPid());
    QByteArray name = base;
    for (int number = 2; folder.exists(name); ++number)
        name = base + '-' + QByteArray::number(number);
    return name;
}

} // namespace

std::variant<StagedFolder, QString> StagedFolder::in(const QString &parent)
{
    auto handle = FolderHandle::open(parent);
    if (!handle)
        return u"the folder %1 cannot be opened"_s.arg(parent);
    const QByteArray name = freeName(*handle);
    auto folder = handle->makeFolder(name);
    if (!folder)
        return u"no folder can be made in %1"_s.arg(parent);
    return StagedFolder(parent, name, *std::move(handle), *std::move(folder));
}

StagedFolder::~StagedFolder()
{
    if (!m_name.isEmpty())
        atomic_file::removeAll(m_parentPath + u'/' + QFile::decodeName(m_name));
}

StagedFolder::Failure StagedFolder::putInPlace(const QString &name, Content content, bool replace)
{
    const QByteArray place = QFile::encodeName(name);
    if (auto failure = content == Content::Files ? m_folder.syncFiles() : m_folder.syncFileSystem())
        return failure;
    if (m_parent.exists(place) && replace) {
        if (auto failure = this->replace(place))
            return failure;
    } else {
        if (auto failure = m_parent.move(m_name, m_parent, place))
            return failure;
        m_name.clear();
    }
    return m_parent.sync();
}

/// Leaves the old folder under the staged one's name, so that it goes with this object.
StagedFolder::Failure StagedFolder::replace(const QByteArray &name)
{
    if (!m_parent.swap(m_name, name))
        return std::nullopt;
    // Without a swap in one step the old folder steps aside first, and back again if the new one cannot come.
    const QByteArray aside = freeName(m_parent);
    if (auto failure = m_parent.move(name, m_parent, aside))
        return failure;
    if (auto failure = m_parent.move(m_name, m_parent, name)) {
        const Failure lost = m_parent.move(aside, m_parent, name);
        return lost ? u"%1; the old one is now called %2"_s.arg(*failure, QFile::decodeName(aside)) : failure;
    }
    m_name = aside;
    return std::nullopt;
}

} // namespace quillon
