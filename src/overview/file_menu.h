#pragma once

#include <QObject>

#include <array>

namespace quillon {

/// Which items of the File menu can be used; the overview and the toolbar both decide, the menu shows.
class FileMenu : public QObject
{
    Q_OBJECT
public:
    enum Item
    {
        New,
        Edit,
        Export,
        Rename,
        Import,
        Backup
    };
    static constexpr std::array items = {New, Edit, Export, Rename, Import, Backup};

    using QObject::QObject;

    [[nodiscard]] bool isEnabled(Item item) const { return m_enabled[item]; }

    void enableAll() { set({true, true, true, true, true, true}); }
    void disableAll() { set({}); }
    /// Those that need no title: New, Import and Backup.
    void enableWithoutTitle() { set({true, false, false, false, true, true}); }

Q_SIGNALS:
    void changed();

private:
    void set(const std::array<bool, items.size()> &enabled)
    {
        if (m_enabled == enabled)
            return;
        m_enabled = enabled;
        Q_EMIT changed();
    }

    std::array<bool, items.size()> m_enabled{};
};

} // namespace quillon
