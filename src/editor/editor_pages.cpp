#include "editor/editor_pages.h"

#include <algorithm>

namespace quillon {

const EditorPage &pageOf(FieldId field)
{
    const QStringView group = padField(field).group;
    const auto holds = [group](const EditorPage &page) { return group.startsWith(page.group); };
    const auto page = std::find_if(editorPages.begin(), editorPages.end(), holds);
    Q_ASSERT(page != editorPages.end());
    return *page;
}

FieldId firstFieldOf(QStringView label)
{
    const auto isNamed = [label](const EditorPage &page) { return page.label == label; };
    const auto page = std::find_if(editorPages.begin(), editorPages.end(), isNamed);
    return page == editorPages.end() ? editorPages.back().firstField : page->firstField;
}

int errorCount(const StringDictionary &errors, const EditorPage &page)
{
    const auto isOnPage = [&page](const auto &error) {
        const auto field = fieldNamed(error.first);
        return field && pageOf(*field).group == page.group;
    };
    return int(std::count_if(errors.begin(), errors.end(), isOnPage));
}

} // namespace quillon
