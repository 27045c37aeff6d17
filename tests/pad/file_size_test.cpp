#include "pad/file_size.h"
#include "support/testing.h"

#include <QStringList>

TEST(FileSizeTest, ShowsKilobytesAndMegabytesExactly)
{
    // Each size with its kilobytes and megabytes; a half goes to the even neighbour.
    const QString cases =
        u"0=0/0.0|1024=1/0.0|1048576=1024/1.0|1500000=1465/1.4|512=0/0.0|1536=2/0.0|512.000000001=1/0.0|"
        "52428=51/0.0|52429=51/0.1|0001024=1/0.0| 2048 bytes=2/0.0|+2048=2/0.0|-1500000 bytes=-1465/-1.4|"
        "1e6=977/1.0|1.50000099E+0006=1465/1.4|5242880000e-3=5120/5.0|.2048e7e9=2000/2.0|2048e=2/0.0|"
        "266,752=0/0.0|1180591620717411303424=1152921504606846976/1125899906842624.0|1024."_s +
        QString(100'000, u'0') + u"=1/0.0"_s;
    for (const QString &each : cases.split(u'|')) {
        const QString bytes = each.section(u'=', 0, 0);
        const QString kilobytes = each.section(u'=', 1).section(u'/', 0, 0);
        const QString megabytes = each.section(u'/', 1);
        EXPECT_EQ(file_size::kilobytes(bytes), kilobytes + u" KB") << each.left(40);
        EXPECT_EQ(file_size::megabytes(bytes), megabytes + u" MB") << each.left(40);
        EXPECT_EQ(file_size::withoutUnit(file_size::kilobytes(bytes)), kilobytes);
        EXPECT_EQ(file_size::withoutUnit(file_size::megabytes(bytes)), megabytes);
    }
    for (const QString &none :
         {u""_s, u".5"_s, u"-1"_s, u"--1024"_s, u"e6"_s, u"many"_s, u"١٠٢٤"_s, u"1e999999999"_s,
          u"1e-999999999"_s, u"2048e99999999999999999999"_s, QString(200, u'9')})
        EXPECT_EQ(file_size::kilobytes(none), u"0 KB"_s) << none;
}
