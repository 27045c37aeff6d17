#include <QCoreApplication>

/// The floor of every start: Qt's core application, made and ended.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    return 0;
}
