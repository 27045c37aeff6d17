#pragma once

#include "platform/result.h"

#include <QObject>

#include <memory>

class QWebEngineProfile;

namespace quillon {

/**
 * What pages store: cookies, databases and the like, in a folder that nothing else is in.
 *
 * The engine can forget cookies alone, so clearing means a new profile on a new folder within. Their names
 * are numbers; the highest is in use, all else there goes.
 */
class WebEngineStorage : public QObject
{
    Q_OBJECT
public:
    /// In bytes. When pages have stored more, all is cleared, and said.
    static constexpr qint64 limit = 64'000'000;

    explicit WebEngineStorage(QString folder);
    ~WebEngineStorage() override;

    /// For pages from now on. It must be there until its last page has gone.
    [[nodiscard]] std::shared_ptr<QWebEngineProfile> profile() const { return m_profile; }

    /// Clears all of it; what cannot be removed is told.
    Result<> clear() { return clear({}); }

    /// Clears all if it is more than limit.
    void look();

Q_SIGNALS:
    /// profile() is another one, and pages of the one before must go; @p reason is for the author, and empty
    /// when that is who wanted it.
    void cleared(const QString &reason);

private:
    Result<> clear(const QString &reason);
    void makeProfile();
    [[nodiscard]] QString path() const;
    [[nodiscard]] Result<> removeOthers() const;

    QString m_folder;
    int m_number;
    std::shared_ptr<QWebEngineProfile> m_profile;
};

} // namespace quillon
