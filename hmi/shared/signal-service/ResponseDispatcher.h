#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <string>

#include <hmi/shared/signal-service/ProxyTable.h>

namespace SignalService {

class ResponseMessage;
class RxSignalProxy;
class TxSignalProxy;

/**
 * Knows the proxies of each path and hands the service's responses to them. A response that lacks a field
 * that its kind requires, or is of an unknown kind, is dropped without a word, as is one for a path that
 * nobody asked about.
 */
class Q_DECL_EXPORT ResponseDispatcher : public QObject
{
    Q_OBJECT

public:
    ResponseDispatcher();
    ~ResponseDispatcher() override;

    /** False, with nothing handed out, when the bytes are no message. */
    bool dispatch(const char* aMessage, int aSize);

    ProxyTable<RxSignalProxy> readers;        ///< every one that exists
    ProxyTable<RxSignalProxy> subscribers;    ///< until they cancel
    ProxyTable<RxSignalProxy> oneShotReaders; ///< until their path's next value
    ProxyTable<TxSignalProxy> writers;        ///< every one that exists

signals:
    void activeChanged(bool aActive);
    void rxSignalAdded(const QString& aPath);
    void txSignalAdded(const QString& aPath);

private:
    void route(const ResponseMessage& aResponse);
    void handOutValue(const ResponseMessage& aResponse);
    void handOutPutResult(const ResponseMessage& aResponse);
    template <class Proxy>
    void handOutText(ProxyTable<Proxy>& aProxies, const ResponseMessage& aResponse);

    std::unique_ptr<ResponseMessage> mSpare; ///< its memory is used again
};

} // namespace SignalService
