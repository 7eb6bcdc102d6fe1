#pragma once

#include "base/colour.h"
#include "base/geometry.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QString>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace chromalog::drive {

inline QJsonValue json(const Colour& c) {
    return QJsonArray{c.red(), c.green(), c.blue(), c.alpha()};
}
inline QJsonValue json(const std::optional<Colour>& c) {
    return c ? json(*c) : QJsonValue(QJsonValue::Null);
}
inline QJsonValue json(Point p) {
    return QJsonArray{p.x, p.y};
}
inline QJsonValue json(Size s) {
    return QJsonArray{s.w, s.h};
}
inline QJsonValue json(const std::string& text) {
    return QString::fromStdString(text);
}

template <typename Range> QJsonArray jsonArray(const Range& values) {
    QJsonArray array;
    for (const auto& value : values)
        array.append(json(value));
    return array;
}

/// Two hexadecimal digits a byte.
inline QJsonValue hex(std::span<const std::uint8_t> bytes) {
    const auto* data = reinterpret_cast<const char*>(bytes.data());
    return QString::fromLatin1(QByteArray(data, qsizetype(bytes.size())).toHex());
}

} // namespace chromalog::drive
