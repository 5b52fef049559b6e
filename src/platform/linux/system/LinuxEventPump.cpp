#include "LinuxEventPump.h"

#include <QCoreApplication>

void LinuxEventPump::Yield() {
    QCoreApplication::processEvents();
}
