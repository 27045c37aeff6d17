#include "platform/web_address.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quillon;

TEST(WebAddressTest, NothingInAnAddressLooksLikeAnotherServer)
{
    const struct
    {
        QString address;
        QString host;
        QString shown;
    } cases[] = {
        {u"http://www.bank.example@pages.org:81/a"_s, u"pages.org:81"_s,
         u"http://www.bank.example@pages.org:81/a"_s},
        {u"http://\u0430pple.org/"_s, u"xn--pple-43d.org"_s, u"http://xn--pple-43d.org/"_s},
        {u"http://pages.org/\u202emoc.knab"_s, u"pages.org"_s, u"http://pages.org/%E2%80%AEmoc.knab"_s},
        {u"http://pages.org/ bank.example"_s, u"pages.org"_s, u"http://pages.org/%20bank.example"_s},
        {u"file:///etc/passwd"_s, {}, u"file:///etc/passwd"_s},
    };
    for (const auto &[address, host, shown] : cases) {
        EXPECT_EQ(unmistakableHost(QUrl(address)), host) << address.toStdString();
        EXPECT_EQ(unmistakableAddress(QUrl(address)), shown) << address.toStdString();
    }
}
