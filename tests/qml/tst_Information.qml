import QtQuick 2.15
import QtTest 1.15
import hmi.shared 1.0
import Hmi.Core 1.0

TestCase {
    name: "Information"

    readonly property string shown: reader.text

    EulaReader { id: reader }
    ProductInfo { id: product }

    function test_theSoftwareSaysWhatItIs() {
        compare([product.softwareVersionMajor, product.softwareVersionMinor, product.softwareVersionMicro], [3, 8, -1]);
        compare(product.softwareVersionCode, 30800);
        verify(/^([0-9a-f]{40}|unknown)$/.test(SystemInformationManager.getSha()));
        verify(/^(.+\/hmishared\/1\.0\.0-\d+-g[0-9a-f]{7,}|unknown)$/.test(SystemInformationManager.getGitDescribe()));
        verify(SystemInformationManager.getQtVersion().startsWith("5."));
    }

    function test_listsAreTheCallersOwn() {
        const [first] = SystemInformationManager.getInformationSubmodule();
        const [second] = SystemInformationManager.getInformationSubmodule();
        compare([first.name, first.sha, first.gitDescribe], ["dummy", "dead000", "dummy description"]);
        verify(first !== second);
        for (const network of SystemInformationManager.getInformationNetwork())
            verify(network.name !== "lo" && network.ipAddresses.length >= 0);
        gc();
        compare(first.name + second.name, "dummydummy");
    }

    function test_documentsAreReadInTheLanguageOfTheHmi() {
        LanguageManager.currentLanguage = "de_AT";
        verify(reader.loadFile(true, true));
        compare(shown, "<p>Lizenzvertrag</p>\n");
        reader.fileType = EulaReader.FileTypeCopyrights;
        verify(!reader.loadFile(true, false));
        compare(shown, reader.getText());
        verify(reader.loadFile(true, true));
        compare(shown, "<p>Copyrights</p>\n");
        LanguageManager.currentLanguage = "";
    }
}
