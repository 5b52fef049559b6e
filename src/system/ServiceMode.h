// The words that manage this program as a service, and the service's own events. Owns the wish for debug mode and
// whether a request is under way. Results are shown in message boxes.
#pragma once

#include "ServiceManager.h"
#include <QObject>
#include <optional>

class Prompter;
class StringTable;
enum class Text;

/// Who gave the word: each has names and messages of its own.
enum class ServiceCaller { CommandLine, Dialog };

class ServiceMode final : public QObject {
    Q_OBJECT
  public:
    /// Everything handed in must outlive this object.
    ServiceMode(ServiceManager& manager, Prompter& prompter, const StringTable& texts)
        : m_manager(manager), m_prompter(prompter), m_texts(texts) {}

    /// True for the six words, spelt exactly.
    [[nodiscard]] static bool IsWord(const QString& text);

    /// Does what the word says; "" does nothing. The exit code when the program has to end now, otherwise nullopt.
    /// Called by the dialog, "install" and "uninstall" only begin here, and are ignored while one of them is under way;
    /// called by the command line they are waited for.
    [[nodiscard]] std::optional<int> ServiceConfiguration(const QString& word, ServiceCaller caller);

    /// Asks for the service's state. StateKnown follows; while a request of the dialog is under way, Working does at
    /// once and StateKnown with its end.
    void QueryState();

  Q_SIGNALS:
    /// The service manager ends the service: the program is to take its closing path.
    void StopWanted();

    /// A request of the dialog has begun, or is still under way. StateKnown follows.
    void Working();
    /// The service's state, as text for people.
    void StateKnown(const QString& text);

  private:
    [[nodiscard]] std::optional<int> changeInstallation(bool install, ServiceCaller caller);
    void showResult(bool installed, bool succeeded, const QString& reason, bool asProblem);
    [[nodiscard]] QString textOf(const ServiceState& state) const;
    [[nodiscard]] std::optional<int> control(bool start, ServiceCaller caller);
    void obey(ServiceControl control);
    void tell(const QString& text, bool isProblem);

    ServiceManager& m_manager;
    Prompter& m_prompter;
    const StringTable& m_texts;
    bool m_debug = false;
    bool m_isBusy = false;
};
