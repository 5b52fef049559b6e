// The notice of possible data loss, shown until the user accepts it. It has no side effects. Every way of closing it
// but the "Accept" button counts as "Decline".
#pragma once

#include <QDialog>

class StringTable;

class frmDisclaimer final : public QDialog {
    Q_OBJECT
  public:
    explicit frmDisclaimer(const StringTable& texts, QWidget* parent = nullptr);
};
