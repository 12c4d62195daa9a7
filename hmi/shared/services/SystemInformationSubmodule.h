#pragma once

#include <QObject>
#include <QString>

namespace Hmi::Shared {

/**
 * A part of the software that has a history of its own, and the commit it was built from. It belongs to
 * whoever asked SystemInformationManager for it; what is written to it changes nothing but the object.
 */
class Q_DECL_EXPORT SystemInformationSubmodule : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER mName READ getName NOTIFY signalChangeName)
    Q_PROPERTY(QString sha MEMBER mSha READ getSha NOTIFY signalChangeSha)
    Q_PROPERTY(QString gitDescribe MEMBER mGitDescribe READ getGitDescribe NOTIFY signalChangeGitDescribe)

public:
    SystemInformationSubmodule(const QString& aName, const QString& aSha, const QString& aGitDescribe,
                               QObject* aParent = nullptr);

    QString getName() const { return mName; }
    QString getSha() const { return mSha; }
    QString getGitDescribe() const { return mGitDescribe; }

signals:
    void signalChangeName();
    void signalChangeSha();
    void signalChangeGitDescribe();

private:
    QString mName;
    QString mSha;
    QString mGitDescribe;
};

} // namespace Hmi::Shared
