// The activity editor: takes one activity as a value and gives one back. It checks the input, lets its caller write it,
// and stays open until both succeed or the user gives up; it never sees the document.
#pragma once

#include "ActivityRecord.h"
#include "EditorChecks.h"
#include "EditorMailTab.h"
#include "FormServices.h"

#include <QDialog>
#include <functional>

class EditorActionTab;
class EditorGeneralTab;
class EditorSafetyTab;
class EditorScheduleTab;
class QTabWidget;

class frmOptions final : public QDialog {
    Q_OBJECT
  public:
    struct Request {
        QString name; ///< "" for a new activity
        ActivityRecord record;
        KnownTexts known;
        /// Whether an activity of this name can be stored.
        std::function<bool(const QString& name)> isUsableName;
        std::function<bool(const QString& path)> isOwnFile;
        /// Writes the activity. False when it was refused and the user has seen why; an exception is shown here. Either
        /// way the editor stays open.
        std::function<bool(const QString& name, const ActivityRecord& record)> write;
        /// Shows what the activity would do as it was saved.
        std::function<void()> preview;
    };

    /// What a new activity looks like before anybody has edited it: active, copies all files every ten minutes, sends
    /// mail (once that is switched on) by itself, shows no message for each file.
    [[nodiscard]] static ActivityRecord NewActivity();

    /// What the services refer to must outlive the editor.
    frmOptions(const EditorServices& services, Request request, QWidget* parent = nullptr);

    /// The activity as it is entered now; the name is trimmed.
    [[nodiscard]] QString Name() const;
    [[nodiscard]] ActivityRecord Record() const;

    /// Whether the editor may end: nothing was changed, or the user agrees to lose it.
    [[nodiscard]] bool MayBeDropped();

  public Q_SLOTS:
    void accept() override;
    /// Escape and closing the window: asks first when something was changed. Cancel does not ask.
    void reject() override;
    void done(int result) override;

  private:
    void buildTabs();
    void buildButtons();
    [[nodiscard]] bool passesChecks();
    [[nodiscard]] bool wavesThrough(const EditorChecks::Problem& problem);
    [[nodiscard]] bool write(const ActivityRecord& record);
    [[nodiscard]] bool isChanged() const;
    void preview();
    void lead(EditorChecks::Tab tab, const char* control);

    EditorServices m_services;
    Request m_request;
    QTabWidget* m_tabs;
    EditorGeneralTab* m_general;
    EditorScheduleTab* m_schedule;
    EditorActionTab* m_action;
    EditorMailTab* m_mail;
    EditorSafetyTab* m_safety;
    QString m_shownName;
    ActivityRecord m_shownRecord; ///< as the controls gave it back before any input
    bool m_over = false;
};
