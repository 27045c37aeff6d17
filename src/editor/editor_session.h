#pragma once

#include "editor/editor.h"

#include <optional>

namespace quillon {

/**
 * An editor without a window, which opens one title after the other.
 *
 * The one that is open is the selected title until close(), so that nothing else may rely on the selection
 * meanwhile.
 */
class EditorSession
{
public:
    /// What the editor tells goes to @p sheets, which must outlive this.
    explicit EditorSession(AlertSheets &sheets);
    /// What the editor tells is dropped.
    EditorSession();
    EditorSession(const EditorSession &) = delete;
    EditorSession &operator=(const EditorSession &) = delete;
    ~EditorSession() { close(); }

    /// Selects @p title and loads it, without checking it. Missing when there is no such title; else as
    /// Editor::loaded().
    Result<> open(const QString &title);

    /// Selects the title again that was before.
    void close() const;

    [[nodiscard]] Editor &editor() { return m_editor; }

private:
    Editor m_editor;
    const std::optional<QString> m_formerTitle;
};

} // namespace quillon
