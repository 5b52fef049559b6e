// Builds replies of a name server byte by byte, broken ones too.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

namespace MXPackets {

inline QByteArray Short(int value) {
    return QByteArray().append(static_cast<char>(value >> 8)).append(static_cast<char>(value & 0xFF));
}

/// The labels of a dotted name without the end.
inline QByteArray Labels(const QByteArray& dotted) {
    QByteArray name;
    for (const QByteArray& label : dotted.split('.'))
        name.append(static_cast<char>(label.size())).append(label);
    return name;
}
inline QByteArray Name(const QByteArray& dotted) {
    return Labels(dotted) + '\0';
}
inline QByteArray Pointer(int offset) {
    return Short(0xC000 | offset);
}

/// A record whose length field is `length`, or what the data really has.
inline QByteArray Record(const QByteArray& owner, int type, const QByteArray& data, qsizetype length = -1) {
    const auto told = static_cast<int>(length < 0 ? data.size() : length);
    return owner + Short(type) + Short(1) + Short(0) + Short(60) + Short(told) + data;
}
inline QByteArray MX(int preference, const QByteArray& exchange) {
    return Record(Pointer(12), 15, Short(preference) + exchange);
}

inline QByteArray Header(int answers, int identifier = 4575, int flags = 0x8180, int questions = 1) {
    return Short(identifier) + Short(flags) + Short(questions) + Short(answers) + Short(0) + Short(0);
}
inline QByteArray Question(const QByteArray& domain, int type = 15) {
    return Name(domain) + Short(type) + Short(1);
}

} // namespace MXPackets
