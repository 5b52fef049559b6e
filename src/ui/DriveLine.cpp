#include "DriveLine.h"

#include "DriveMark.h"
#include "PathLook.h"
#include "StringTable.h"
#include "modNativePath.h"
#include <chrono>

namespace {
constexpr std::chrono::milliseconds answerInterval{30};
} // namespace

DriveLine::DriveLine(const char* objectName, const StringTable& texts) : m_texts(texts) {
    setObjectName(QLatin1String(objectName));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    m_waiting.setInterval(answerInterval);
    connect(&m_waiting, &QTimer::timeout, this, &DriveLine::take);
}

void DriveLine::Look(const QString& path, const QString& mark) {
    m_path = path;
    m_mark = mark;
    // While a drive does not answer, no second look joins the first.
    if (m_answer.valid())
        return;
    m_asked = path;
    m_answer = PathLook::DriveOf(modNativePath::Absolute(path));
    m_waiting.start();
}

void DriveLine::take() {
    if (m_answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return;
    m_waiting.stop();
    const std::optional<modDrive::Named> drive = m_answer.get();
    if (m_asked != m_path)
        return Look(m_path, m_mark);
    setText(text(drive ? DriveMark::Of(*drive) : QString()));
}

QString DriveLine::text(const QString& present) const {
    const QString now = DriveMark::Spoken(present);
    const QString own = DriveMark::Spoken(m_mark);
    if (own.isEmpty())
        return now.isEmpty() ? m_texts[Text::DriveNotKnown] : m_texts[Text::DriveIsThere].arg(now);
    if (now.isEmpty())
        return m_texts[Text::DriveNotThere].arg(own);
    return DriveMark::IsSame(m_mark, present) ? m_texts[Text::DriveIsThere].arg(own)
                                              : m_texts[Text::DriveIsOther].arg(own, now);
}
