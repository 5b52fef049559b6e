// The notice of possible data loss that is shown until it has been accepted. A form without side effects: it ends
// accepted or rejected, and every way of closing it but the "Accept" button counts as "Decline".
#pragma once

#include <QDialog>

class StringTable;

class frmDisclaimer final : public QDialog {
    Q_OBJECT
  public:
    explicit frmDisclaimer(const StringTable& texts, QWidget* parent = nullptr);
};
