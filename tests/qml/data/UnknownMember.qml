import QtQuick 2.15

Item { noSuchMember: 1 }
