#include "modNetrc.h"
#include "modMailHost.h"

#include <optional>

namespace {

class Tokens final {
  public:
    explicit Tokens(const QByteArray& bytes) : m_bytes(bytes) {}

    /// The next keyword, past comments; nullopt at the end.
    std::optional<QByteArray> Keyword() {
        for (skipBlanks(); m_at < m_bytes.size() && m_bytes.at(m_at) == '#'; skipBlanks())
            skipLine();
        return Value();
    }
    /// The next token, whatever it begins with.
    std::optional<QByteArray> Value() {
        skipBlanks();
        if (m_at >= m_bytes.size())
            return std::nullopt;
        return m_bytes.at(m_at) == '"' ? quoted() : plain();
    }
    /// A macro ends at the first empty line.
    void SkipMacro() {
        do {
            skipLine();
        } while (m_at < m_bytes.size() && m_bytes.at(m_at) != '\n' && m_bytes.at(m_at) != '\r');
    }

  private:
    static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
    void skipBlanks() {
        while (m_at < m_bytes.size() && isBlank(m_bytes.at(m_at)))
            ++m_at;
    }
    void skipLine() {
        const qsizetype end = m_bytes.indexOf('\n', m_at);
        m_at = end < 0 ? m_bytes.size() : end + 1;
    }
    QByteArray plain() {
        const qsizetype start = m_at;
        while (m_at < m_bytes.size() && !isBlank(m_bytes.at(m_at)))
            ++m_at;
        return m_bytes.mid(start, m_at - start);
    }
    std::optional<QByteArray> quoted() {
        QByteArray token;
        for (++m_at; m_at < m_bytes.size(); ++m_at) {
            if (m_bytes.at(m_at) == '"') {
                ++m_at;
                return token;
            }
            if (m_bytes.at(m_at) == '\\' && m_at + 1 < m_bytes.size())
                ++m_at;
            token += m_bytes.at(m_at);
        }
        return std::nullopt;
    }

    const QByteArray& m_bytes;
    qsizetype m_at = 0;
};

struct Entry {
    std::optional<QByteArray> host;
    std::optional<QByteArray> user;
    QByteArray password;

    [[nodiscard]] bool IsOf(const QString& wantedHost, const QString& wantedUser) const {
        return host && user && modMailHost::Canonical(QString::fromUtf8(*host)) == wantedHost &&
               QString::fromUtf8(*user) == wantedUser;
    }
};

} // namespace

QByteArray modNetrc::PasswordOf(const QByteArray& netrc, const QString& host, const QString& user) {
    Tokens tokens(netrc);
    Entry entry;
    for (;;) {
        const std::optional<QByteArray> keyword = tokens.Keyword();
        const bool isNew = !keyword || *keyword == "machine" || *keyword == "default";
        if (isNew && !entry.password.isEmpty() && entry.IsOf(host, user))
            return entry.password;
        if (!keyword)
            return {};
        if (isNew)
            entry = {};
        if (*keyword == "default")
            continue;
        if (*keyword == "macdef") {
            tokens.SkipMacro();
            continue;
        }
        const std::optional<QByteArray> value = tokens.Value();
        if (!value)
            return {};
        if (*keyword == "machine")
            entry.host = *value;
        else if (*keyword == "login")
            entry.user = *value;
        else if (*keyword == "password")
            entry.password = *value;
        else if (*keyword != "account")
            return {}; // whose value may be taken for a keyword
    }
}
