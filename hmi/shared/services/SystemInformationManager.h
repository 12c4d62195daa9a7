#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <hmi/core/foundation/SingletonCppQml.h>

namespace Hmi::Shared {

/**
 * What information and diagnostic screens say about the software and the network. QML reaches it as the
 * singleton SystemInformationManager. Main thread only.
 *
 * The lists are made anew by each call and hold objects without a parent. A QML engine deletes those that it
 * was handed when nothing refers to them any more; native callers delete theirs.
 */
class Q_DECL_EXPORT SystemInformationManager : public Core::SingletonCppQml<SystemInformationManager>
{
    Q_OBJECT
    friend class Core::SingletonCppQml<SystemInformationManager>;

public:
    /** A SystemInformationNetwork for each interface that is up, loopback left out, in the system's order. */
    Q_INVOKABLE QList<QObject*> getInformationNetwork() const;

    /** One placeholder, a SystemInformationSubmodule: the library has no submodules. */
    Q_INVOKABLE QList<QObject*> getInformationSubmodule() const;

    /** The commit that the library was built from, 40 hexadecimal digits. "unknown" when it was not built in
     * its own git repository, as from a tarball. */
    Q_INVOKABLE QString getSha() const;

    /**
     * The commit for people, as "main/hmishared/1.0.0-123-g0123abc": branch ("detached" without one),
     * product, version, number of commits up to this one (0 when the repository is shallow), "g" and the
     * first digits of the commit. The branch may hold slashes itself. Changes that were not committed do not
     * show. "unknown" as getSha().
     */
    Q_INVOKABLE QString getGitDescribe() const;

    /** Of the Qt that the library was built against, such as "5.15.8". */
    Q_INVOKABLE QString getQtVersion() const;

private:
    SystemInformationManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);
};

} // namespace Hmi::Shared
