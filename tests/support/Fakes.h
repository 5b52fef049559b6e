// Stand-ins for the world outside, for tests that need to steer it. Each remembers what was asked of it.
#pragma once

#include "Clock.h"
#include "DesktopEntries.h"
#include "EventPump.h"
#include "FolderWatch.h"
#include "KeyState.h"
#include "Locks.h"
#include "Machine.h"
#include "NameService.h"
#include "Notifier.h"
#include "PasswordStore.h"
#include "Process.h"
#include "Prompter.h"
#include "ServiceManager.h"
#include "SettingsStore.h"

#include <QMap>
#include <QStringList>
#include <functional>
#include <set>
#include <vector>

class FakePrompter final : public Prompter {
  public:
    MessageAnswer Ask(const Message& message) override {
        shown.push_back(message);
        if (onAsk)
            onAsk(message);
        if (message.buttons == MessageButtons::YesNo)
            return yes ? MessageAnswer::Yes : MessageAnswer::No;
        return MessageAnswer::Ok;
    }
    /// What was shown, each as "title: text".
    QStringList Told() const {
        QStringList told;
        for (const Message& message : shown)
            told.append(message.title + u": "_qs + message.text);
        return told;
    }
    std::vector<Message> shown;
    bool yes = false;
    std::function<void(const Message&)> onAsk;
};

class FakeClock final : public Clock {
  public:
    std::chrono::system_clock::time_point Now() const override { return now; }
    std::chrono::steady_clock::time_point MonotonicNow() const override {
        now += step;
        return std::chrono::steady_clock::time_point(now.time_since_epoch() - wrong - slept);
    }
    std::chrono::steady_clock::time_point ElapsedNow() const override {
        return std::chrono::steady_clock::time_point(now.time_since_epoch() - wrong);
    }
    void Advance(std::chrono::milliseconds span) { now += span; }
    /// The machine sleeps.
    void Sleep(std::chrono::seconds span) {
        now += span;
        slept += span;
    }
    /// Somebody sets the wall clock.
    void Set(std::chrono::seconds span) {
        now += span;
        wrong += span;
    }
    std::chrono::seconds slept{0};
    std::chrono::seconds wrong{0};
    mutable std::chrono::system_clock::time_point now = std::chrono::system_clock::from_time_t(1795000000);
    std::chrono::seconds step{0}; ///< that passes with each look at the monotonic clock
};

class FakeEventPump final : public EventPump {
  public:
    void Yield() override {
        if (onYield)
            onYield();
    }
    std::function<void()> onYield;
};

class FakeKeyState final : public KeyState {
  public:
    bool IsF8Down() const override { return down; }
    bool down = false;
};

class MemorySettings final : public SettingsStore {
  public:
    std::optional<QString> Read(const QString& application, const QString& section, const QString& key) const override {
        const auto found = values.find(application + u'/' + section + u'/' + key);
        return found == values.end() ? std::nullopt : std::optional<QString>(*found);
    }
    std::error_code WriteAll(const QString& application, const QString& section, const Entries& entries) override {
        for (const auto& [key, value] : entries)
            if (key == failing)
                return std::make_error_code(std::errc::no_space_on_device);
        for (const auto& [key, value] : entries)
            values[application + u'/' + section + u'/' + key] = value;
        return {};
    }
    std::filesystem::path FileOf(const QString& /*application*/) const override { return file; }
    QMap<QString, QString> values;
    std::filesystem::path file;
    QString failing; ///< the key that cannot be written
};

class FakeLocks final : public Locks {
  public:
    std::unique_ptr<HeldLock> TryAcquire(const QString& name, LockRefusal& refusal) override {
        refusal = canBeMade ? LockRefusal::HeldElsewhere : LockRefusal::NoneCanBeMade;
        if (!canBeMade || !held.insert(name).second)
            return nullptr;
        return std::make_unique<Held>(*this, name);
    }
    std::filesystem::path Place() const override { return place; }
    std::filesystem::path place;
    std::set<QString> held;
    bool canBeMade = true;

  private:
    class Held final : public HeldLock {
      public:
        Held(FakeLocks& locks, QString name) : m_locks(locks), m_name(std::move(name)) {}
        ~Held() override { m_locks.held.erase(m_name); }

      private:
        FakeLocks& m_locks;
        QString m_name;
    };
};

class FakeNameService final : public NameService {
  public:
    NameServers Discover() const override { return known; }
    NameServers known;
};

class FakeProcess final : public Process {
  public:
    bool Open(const QString& path) override {
        opened.append(path);
        return succeeds;
    }
    void ShowDocument(const QString& path, const std::function<void()>& failed) override {
        opened.append(path);
        if (!succeeds)
            failed();
    }
    bool OpenFolder(const QString& /*path*/) override { return succeeds; }
    bool OpenWebPage(const QString& /*address*/) override { return succeeds; }
    void EndNow(int exitCode) override { endedWith = exitCode; }
    QStringList opened;
    bool succeeds = true;
    std::optional<int> endedWith;
};

/// Each watch tells what the test puts into its folder's news.
class FakeFolderWatches final : public FolderWatches {
  public:
    std::unique_ptr<FolderWatch> Begin(const WatchOrder& order) override {
        orders.push_back(order);
        return std::make_unique<Watch>(news[order.folder]);
    }
    std::vector<WatchOrder> orders;
    std::map<std::filesystem::path, FolderWatch::News> news;

  private:
    class Watch final : public FolderWatch {
      public:
        explicit Watch(News& news) : m_news(news) {}
        News Take() override { return std::exchange(m_news, {}); }

      private:
        News& m_news;
    };
};

class FakeNotifier final : public Notifier {
  public:
    bool IsAvailable() const override { return available; }
    void Show(const Notice& notice) override { shown.append(notice.key + u'|' + notice.title + u'|' + notice.text); }
    QStringList shown;
    bool available = true;
};

class FakePasswordStore final : public PasswordStore {
  public:
    void Read(const QString& key, const Question& question) override {
        const PasswordAnswer::Outcome outcome = outcomeOf(key);
        const bool isFound = outcome == PasswordAnswer::Outcome::Done;
        answer(question, u"read "_qs + key, {outcome, isFound ? passwords.value(key) : QByteArray(), u"no\x1b"_qs});
    }
    void Write(const QString& key, const QByteArray& password, const Question& question) override {
        if (failing == PasswordAnswer::Outcome::Done)
            passwords[key] = password;
        answer(question, u"write "_qs + key, {failing, {}, u"no\x1b"_qs});
    }
    void Remove(const QString& key, const Question& question) override {
        const PasswordAnswer::Outcome outcome = outcomeOf(key);
        passwords.remove(key);
        answer(question, u"remove "_qs + key, {outcome, {}, u"no\x1b"_qs});
    }
    QMap<QString, QByteArray> passwords;
    PasswordAnswer::Outcome failing = PasswordAnswer::Outcome::Done;
    QStringList asked;

  private:
    PasswordAnswer::Outcome outcomeOf(const QString& key) const {
        if (failing != PasswordAnswer::Outcome::Done)
            return failing;
        return passwords.contains(key) ? failing : PasswordAnswer::Outcome::NotStored;
    }
    void answer(const Question& question, const QString& what, const PasswordAnswer& answer) {
        asked.append(what);
        answerLater(question, answer);
    }
};

class FakePowerControl final : public PowerControl {
  public:
    bool PowerOff() override {
        ++requests;
        return succeeds;
    }
    int requests = 0;
    bool succeeds = true;
};

class FakeAutostart final : public Autostart {
  public:
    bool Exists(const QString& name) const override { return entries.contains(name); }
    std::error_code Create(const QString& name, const std::filesystem::path& program) override {
        if (!failure)
            entries[name] = QString::fromStdString(program.string());
        return failure;
    }
    std::error_code Remove(const QString& name) override {
        if (!failure)
            entries.remove(name);
        return failure;
    }
    QMap<QString, QString> entries;
    std::error_code failure;
};

class FakeServiceManager final : public ServiceManager {
  public:
    void Install(Outcome outcome) override { answer(did(u"install"_qs), outcome); }
    void Uninstall(Outcome outcome) override { answer(did(u"uninstall"_qs), outcome); }
    void QueryState(StateListener told) override { told(state); }
    bool Start(const QString& service) override { return did(u"start "_qs + service); }
    bool Stop(const QString& service) override { return did(u"stop "_qs + service); }
    void Connect() override { did(u"connect"_qs); }
    bool AcceptControls(bool debug, ControlListener newListener) override {
        if (!debug && !runsThisProcess)
            return false;
        listener = std::move(newListener);
        return true;
    }
    void NotifyReady() override { did(u"ready"_qs); }
    void NotifyStopping() override { did(u"stopping"_qs); }
    void NotifyEnd(int exitCode) override { did(u"end %1"_qs.arg(exitCode)); }
    void LogEvent(ServiceEvent type, int id, const QString& text) override {
        did(u"event %1 %2 %3"_qs.arg(static_cast<int>(type)).arg(id).arg(text));
    }
    QStringList asked;
    bool succeeds = true;
    QString reason;
    ServiceState state;
    bool runsThisProcess = false;
    std::function<void(std::function<void()> work)> later = [](const std::function<void()>& work) { work(); };
    ControlListener listener;

  private:
    bool did(const QString& what) {
        asked.append(what);
        return succeeds;
    }
    void answer(bool succeeded, const Outcome& outcome) {
        later([=, this] { outcome(succeeded, reason); });
    }
};

class FakeSystemClock final : public SystemClock {
  public:
    void Set(std::chrono::system_clock::time_point time, Outcome outcome) override {
        set.push_back(time);
        outcome(reason);
    }
    std::vector<std::chrono::system_clock::time_point> set;
    QString reason;
};

class FakeDialUp final : public DialUp {
  public:
    bool IsActive() const override { return active; }
    bool active = false;
};

class FakeFileTypes final : public FileTypes {
  public:
    std::error_code Register(const FileType& type) override {
        registered.push_back(type);
        return error;
    }
    std::vector<FileType> registered;
    std::error_code error;
};
