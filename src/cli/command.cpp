#include "cli/command.h"

#include "store/storage_status.h"
#include "store/title_folder.h"

#include <QFileInfo>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

void write(const QByteArray &bytes, std::FILE *file)
{
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), file);
}

} // namespace

void print(const QString &line)
{
    write(line.toUtf8() + '\n', stdout);
}

void complain(const QString &line)
{
    write("quillon-cli: " + line.toUtf8() + '\n', stderr);
}

void print(const QJsonDocument &document)
{
    write(document.toJson(), stdout);
}

void print(const QByteArray &bytes)
{
    write(bytes, stdout);
}

bool isPrinted()
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return true;
    complain(u"The output could not be written."_s);
    return false;
}

bool titleExists(const QString &name)
{
    if (title_folder::exists(name))
        return true;
    complain(u"There is no title named %1."_s.arg(name));
    return false;
}

bool isReadableFile(const QString &path)
{
    const QFileInfo file(path);
    return file.isFile() && file.isReadable();
}

ExitStatus outcome(const Result<> &result)
{
    if (result)
        return Done;
    complain(failureLine(result.error()));
    return FileFailed;
}

} // namespace quillon::cli
