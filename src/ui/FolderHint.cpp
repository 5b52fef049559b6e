#include "FolderHint.h"

#include "FieldHint.h"
#include "PathLook.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include <QDir>
#include <QLineEdit>
#include <chrono>

namespace {

constexpr std::chrono::milliseconds typingPause{400};
constexpr std::chrono::milliseconds answerInterval{30};

/// The text with the user's folder for a "~" in front.
QString withHome(const QString& text) {
    if (text != u"~" && !text.startsWith(u"~/"))
        return text;
    return QDir::toNativeSeparators(QDir::homePath() + text.mid(1));
}

} // namespace

FolderHint::FolderHint(QLineEdit& line, const StringTable& texts)
    : QObject(&line), m_line(line), m_texts(texts), m_hint(new FieldHint(line)) {
    m_pause.setObjectName(QStringLiteral("typingPause"));
    m_pause.setSingleShot(true);
    m_pause.setInterval(typingPause);
    m_waiting.setInterval(answerInterval);
    connect(&m_pause, &QTimer::timeout, this, &FolderHint::look);
    connect(&m_waiting, &QTimer::timeout, this, &FolderHint::take);
    connect(&line, &QLineEdit::textChanged, this, [this](const QString& text) {
        // Written out, "~" is the same folder: the button that may just be pressed stays.
        if (withHome(text) == m_asked)
            return;
        m_hint->Clear();
        m_asked.clear();
        m_pause.start();
    });
    connect(&line, &QLineEdit::editingFinished, this, [this] {
        if (const QString path = withHome(m_line.text()); path != m_line.text())
            m_line.setText(path);
    });
}

void FolderHint::look() {
    // While a drive does not answer, no second look joins the first.
    if (m_answer.valid() || m_line.text().trimmed().isEmpty())
        return;
    m_asked = withHome(m_line.text());
    m_answer = PathLook::IsFolder(modNativePath::Absolute(m_asked));
    m_waiting.start();
}

void FolderHint::take() {
    if (m_answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return;
    m_waiting.stop();
    const bool exists = m_answer.get();
    if (withHome(m_line.text()) != m_asked)
        return look();
    FieldHint::Offer offer;
    // A relative path would lead to wherever the program was started.
    if (QDir::isAbsolutePath(m_asked))
        offer = {m_texts[Text::CreateFolder], [this] { create(); }};
    if (!exists)
        m_hint->Object(m_texts[Text::FolderMissing], offer);
}

void FolderHint::create() {
    std::error_code error;
    std::filesystem::create_directories(modNativePath::Absolute(m_asked), error);
    if (error)
        return m_hint->Object(m_texts[Text::FolderNotCreated].arg(modForeignText::OfError(error)));
    m_line.setText(m_asked);
    m_line.setFocus();
    m_hint->Clear();
}
