// The baseline of the hand-off benchmark: a Qt core program that starts and
// ends, the least any Qt program costs.
#include <QCoreApplication>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    return 0;
}
