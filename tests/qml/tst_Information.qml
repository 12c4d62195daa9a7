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
        compare([product.softwareVersionCode, product.softwareVersionMicro], [30800, -1]);
        verify(/^([0-9a-f]{40}|unknown)$/.test(SystemInformationManager.getSha()));
        verify(/^(.+\/hmishared\/1\.0\.0-\d+-g[0-9a-f]{7,}|unknown)$/.test(SystemInformationManager.getGitDescribe()));
        const [module] = SystemInformationManager.getInformationSubmodule();
        gc();
        compare([module.name, module.sha, module.gitDescribe], ["dummy", "dead000", "dummy description"]);
    }

    function test_documentsAreReadInTheLanguageOfTheHmi() {
        LanguageManager.currentLanguage = "de_AT";
        verify(reader.loadFile(true, true));
        compare(shown, "<p>Lizenzvertrag</p>\n");
        reader.fileType = EulaReader.FileTypeCopyrights;
        verify(!reader.loadFile(true, false) && reader.loadFile(true, true));
        compare(shown, "<p>Copyrights</p>\n");
    }
}
