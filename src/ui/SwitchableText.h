// A line that is sometimes not wanted: it is emptied and disabled then, and has its text back when it is wanted again.
// Refers to the line.
#pragma once

#include <QLineEdit>

class SwitchableText final {
  public:
    explicit SwitchableText(QLineEdit& line) : m_line(line) {}

    void SetWanted(bool wanted) {
        if (wanted == m_wanted)
            return;
        m_wanted = wanted;
        m_line.setEnabled(wanted);
        if (wanted && m_line.text().isEmpty()) {
            m_line.setText(m_kept);
        } else if (!wanted) {
            m_kept = m_line.text();
            m_line.clear();
        }
    }

  private:
    QLineEdit& m_line;
    QString m_kept;
    bool m_wanted = true;
};
