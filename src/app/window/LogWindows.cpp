#include "LogWindows.h"

#include "LogKinds.h"
#include "frmLogFile.h"
#include <algorithm>
#include <system_error>

LogWindows::LogWindows(const StringTable& texts, std::function<void(const QString&)> undo)
    : m_texts(texts), m_undo(std::move(undo)) {}

LogWindows::~LogWindows() = default;

void LogWindows::Show(const std::filesystem::path& log, std::optional<qint64> position) {
    std::error_code noDirectory;
    const std::filesystem::path path = std::filesystem::absolute(log, noDirectory);
    if (log.empty() || noDirectory)
        return;
    const bool isNew = std::none_of(m_windows.begin(), m_windows.end(),
                                    [&path](const Window& one) { return one.log == path && one.form->isVisible(); });
    frmLogFile& form = windowOf(path);
    if (isNew || position)
        form.ShowAt(position);
    form.isMinimized() ? form.showNormal() : form.show();
    form.raise();
    form.activateWindow();
}

frmLogFile& LogWindows::windowOf(const std::filesystem::path& log) {
    const auto found =
        std::find_if(m_windows.begin(), m_windows.end(), [&log](const Window& one) { return one.log == log; });
    if (found != m_windows.end())
        return *found->form;
    if (!m_kinds)
        m_kinds = std::make_shared<const LogKinds>();
    auto form = std::make_unique<frmLogFile>(m_texts, nullptr, m_kinds);
    // Its own event may still be on the stack.
    QObject::connect(
        form.get(), &QDialog::finished, &m_context, [this] { dropClosed(); }, Qt::QueuedConnection);
    // Closing the window during the undo must not take its event's sender away.
    QObject::connect(form.get(), &frmLogFile::UndoWanted, &m_context, m_undo, Qt::QueuedConnection);
    form->SetFile(log);
    return *m_windows.emplace_back(Window{log, std::move(form)}).form;
}

void LogWindows::dropClosed() {
    std::erase_if(m_windows, [](const Window& one) { return !one.form->isVisible(); });
}

void LogWindows::CloseAll() {
    for (const Window& one : m_windows)
        one.form->close();
}
