#include "pad/file_size.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quillon;

TEST(FileSizeTest, ShowsKilobytesAndMegabytesExactly)
{
    const struct
    {
        QString bytes, kilobytes, megabytes;
    } cases[] = {{u"0"_s, u"0"_s, u"0.0"_s},
                 {u"1024"_s, u"1"_s, u"0.0"_s},
                 {u"1048576"_s, u"1024"_s, u"1.0"_s},
                 {u"1500000"_s, u"1465"_s, u"1.4"_s},
                 {u"512"_s, u"0"_s, u"0.0"_s}, // A half goes to the even neighbour.
                 {u"1536"_s, u"2"_s, u"0.0"_s},
                 {u"512.000000001"_s, u"1"_s, u"0.0"_s},
                 {u"52428"_s, u"51"_s, u"0.0"_s},
                 {u"52429"_s, u"51"_s, u"0.1"_s},
                 {u"0001024"_s, u"1"_s, u"0.0"_s},
                 {u" 2048 bytes"_s, u"2"_s, u"0.0"_s},
                 {u"+2048"_s, u"2"_s, u"0.0"_s},
                 {u"-1500000 bytes"_s, u"-1465"_s, u"-1.4"_s},
                 {u"1e6"_s, u"977"_s, u"1.0"_s},
                 {u"1.50000099E+0006"_s, u"1465"_s, u"1.4"_s},
                 {u"5242880000e-3"_s, u"5120"_s, u"5.0"_s},
                 {u".2048e7e9"_s, u"2000"_s, u"2.0"_s},
                 {u"2048e"_s, u"2"_s, u"0.0"_s},
                 {u"266,752"_s, u"0"_s, u"0.0"_s},
                 {u"1024."_s + QString(100'000, u'0'), u"1"_s, u"0.0"_s},
                 {u"1180591620717411303424"_s, u"1152921504606846976"_s, u"1125899906842624.0"_s}};
    for (const auto &[bytes, kilobytes, megabytes] : cases) {
        EXPECT_EQ(file_size::kilobytes(bytes), QString(kilobytes + u" KB")) << bytes.left(30).toStdString();
        EXPECT_EQ(file_size::megabytes(bytes), QString(megabytes + u" MB")) << bytes.left(30).toStdString();
        EXPECT_EQ(file_size::withoutUnit(file_size::kilobytes(bytes)), kilobytes);
        EXPECT_EQ(file_size::withoutUnit(file_size::megabytes(bytes)), megabytes);
    }
    for (const QString &none :
         {u""_s, u".5"_s, u"-1"_s, u"--1024"_s, u"e6"_s, u"many"_s, u"١٠٢٤"_s, u"1e999999999"_s,
          u"1e-999999999"_s, u"2048e99999999999999999999"_s, QString(200, u'9')})
        EXPECT_EQ(file_size::kilobytes(none), u"0 KB"_s) << none.toStdString();
}
