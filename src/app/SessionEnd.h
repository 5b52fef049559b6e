// Tells that the desktop asks the application to quit, as it does at the end of a session. Takes the request out of the
// event queue, since Qt would give it up as soon as a window asks back.
#pragma once

#include <QObject>

class QCoreApplication;

class SessionEnd final : public QObject {
    Q_OBJECT
  public:
    explicit SessionEnd(QCoreApplication& application);

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    void Requested();
};
