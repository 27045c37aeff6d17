#include "platform/property_list.h"

#include "platform/text_decoding.h"

#include <QCoreApplication>

#include <cstdlib>
#include <memory>
#include <plist/plist.h>

using namespace Qt::StringLiterals;

namespace quillon::property_list {

namespace {

class PropertyListText
{
    Q_DECLARE_TR_FUNCTIONS(PropertyList)
};

using Node = std::unique_ptr<void, decltype(&plist_free)>;
using Text = std::unique_ptr<char, decltype(&std::free)>;

/// How many bytes libplist moves at most to decode the references in @p xml: for each, the rest of its text.
qsizetype bytesMoved(QByteArrayView xml)
{
    qsizetype moved = 0;
    while (!xml.isEmpty()) {
        const qsizetype next = xml.indexOf('<', 1);
        const QByteArrayView text = next < 0 ? xml : xml.first(next);
        moved += text.count('&') * text.size();
        xml = xml.sliced(text.size());
    }
    return moved;
}

/// Whether libplist can take @p xml: it ends the process on a NUL, compares each key with all before it, and
/// calls itself for each container in another one. Counted are all containers, not only those in one another,
/// which could not be told without reading comments and declarations just as libplist does.
bool isBearable(const QByteArray &xml)
{
    return !xml.isEmpty() && xml.size() <= maxSize && !xml.contains('\0') &&
           xml.count("<dict") + xml.count("<array") <= maxContainers && xml.count("<key") <= maxEntries &&
           bytesMoved(xml) <= maxMoves;
}

} // namespace

Result<StringDictionary> read(const QByteArray &bytes)
{
    const Error notOne{.kind = Error::Kind::Unintelligible,
                       .reason = PropertyListText::tr("it is no property list of texts")};
    if (!isBearable(bytes))
        return notOne;
    plist_t root = nullptr;
    plist_from_xml(bytes.constData(), static_cast<uint32_t>(bytes.size()), &root);
    const Node owner(root, plist_free);
    if (!root || plist_get_node_type(root) != PLIST_DICT)
        return notOne;

    StringDictionary dictionary;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(root, &position);
    const std::unique_ptr<void, decltype(&std::free)> positionOwner(position, std::free);
    for (;;) {
        char *key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(root, position, &key, &value);
        const Text keyOwner(key, std::free);
        if (!value)
            break;
        if (plist_get_node_type(value) != PLIST_STRING)
            continue;
        char *text = nullptr;
        plist_get_string_val(value, &text);
        const Text textOwner(text, std::free);
        dictionary[exactText(key)] = exactText(text);
    }
    return dictionary;
}

QByteArray write(const StringDictionary &dictionary)
{
    if (dictionary.empty())
        return emptyText();
    const Node root(plist_new_dict(), plist_free);
    for (const auto &[key, value] : dictionary)
        plist_dict_set_item(root.get(), key.toUtf8().constData(),
                            plist_new_string(value.toUtf8().constData()));
    char *xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(root.get(), &xml, &length);
    const Text owner(xml, std::free);
    return QByteArray(xml, length);
}

QByteArray emptyText()
{
    return QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                             "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                             "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                             "<plist version=\"1.0\">\n"
                             "<dict>\n"
                             "</dict>\n"
                             "</plist>");
}

} // namespace quillon::property_list
