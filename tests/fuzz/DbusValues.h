#pragma once

#include "Fuzzing.h"

#include <QDBusArgument>
#include <QMap>
#include <QStringList>
#include <QVariant>
#include <algorithm>
#include <cstring>
#include <utility>

#include <platform/notification-manager/NotificationTypes.h>

namespace HmiFuzz {

using NotificationsById = QMap<uint, NotificationMgr::NotificationInstance>;

/** Takes values from the input; when it is used up, zeros and empty texts. */
class Values
{
public:
    explicit Values(Input& aInput) : mInput(aInput) {}

    bool atEnd() const { return mInput.getRestSize() == 0; }
    template <class T>
    T take()
    {
        T value{};
        const std::size_t size = std::min(sizeof value, mInput.getRestSize());
        std::memcpy(&value, mInput.getRest(), size);
        mInput.skip(size);
        return value;
    }
    int byte() { return take<quint8>(); }
    bool flag() { return (byte() & 1) != 0; }
    /** As the bus carries it: Unicode without NUL. */
    QString text()
    {
        QByteArray bytes(byte() & 15, '\0');
        for (char& value : bytes)
            value = take<char>();
        return QString::fromUtf8(bytes.constData());
    }
    QStringList texts() { return flag() ? QStringList{text(), text()} : QStringList(); }
    /** A list as it travels, in which an id may be twice; the first with a count of 255 is a long one. */
    QDBusArgument notifications(NotificationsById& aMeant)
    {
        static bool sWasLong = false;
        QDBusArgument list;
        const auto add = [&](uint aId, const NotificationMgr::NotificationInstance& aInstance) {
            list.beginMapEntry();
            list << aId << aInstance;
            list.endMapEntry();
            aMeant.insert(aId, aInstance);
        };
        list.beginMap(QMetaType::UInt, qMetaTypeId<NotificationMgr::NotificationInstance>());
        const int count = byte();
        const bool isLong = count == 255 && !std::exchange(sWasLong, true);
        for (uint id = isLong ? 20000 : 0; id > 0; --id)
            add(id, {});
        for (int left = count & 7; left > 0; --left) {
            const uint id = flag() ? take<uint>() : take<quint8>();
            const int priority = take<int>();
            const QString type = text();
            add(id, {priority, type, text()});
        }
        list.endMap();
        return list;
    }
    /** With one too few, one of another type, or, where that is wrong as well, one too many. */
    QVariantList bend(QVariantList aArguments, bool aMayHaveMore)
    {
        const int choice = byte() | (aMayHaveMore ? 1 : 0);
        const QVariant other = QVariant::fromValue(take<quint16>());
        if ((choice & 3) == 0)
            aArguments.append(other);
        else if ((choice & 3) == 1)
            aArguments.removeLast();
        else
            aArguments[(choice >> 2) % aArguments.size()] = other;
        return aArguments;
    }

private:
    Input& mInput;
};

} // namespace HmiFuzz
