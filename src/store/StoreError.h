// The only exception of the store: an operation on the document or its file failed. Carries the text for the user, and
// whether loading the file again would help.
#pragma once

#include <QString>
#include <stdexcept>

class StoreError final : public std::runtime_error {
  public:
    enum class Reason {
        Failed,
        ChangedOnDisk ///< another program wrote the file after it was loaded
    };
    explicit StoreError(const QString& text, Reason reason = Reason::Failed)
        : std::runtime_error(text.toLocal8Bit().toStdString()), m_text(text), m_reason(reason) {}
    [[nodiscard]] const QString& Text() const { return m_text; }
    [[nodiscard]] Reason Why() const { return m_reason; }

  private:
    QString m_text;
    Reason m_reason;
};
