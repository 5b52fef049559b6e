// The one exception of this floor: an operation on the activity document or its file that could not be done. Carries
// the text for the user.
#pragma once

#include <QString>
#include <stdexcept>

class StoreError final : public std::runtime_error {
  public:
    explicit StoreError(const QString& text) : std::runtime_error(text.toStdString()), m_text(text) {}
    [[nodiscard]] const QString& Text() const { return m_text; }

  private:
    QString m_text;
};
