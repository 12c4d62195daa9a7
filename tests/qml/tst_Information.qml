import QtQuick 2.15
import QtTest 1.15
import hmi.shared 1.0

TestCase {
    name: "Information"

    ProductInfo { id: product }

    function test_theSoftwareSaysWhatItIs() {
        compare([product.softwareVersionCode, product.softwareVersionMicro], [30800, -1]);
        verify(/^([0-9a-f]{40}|unknown)$/.test(SystemInformationManager.getSha()));
        verify(/^(.+\/hmishared\/1\.0\.0-\d+-g[0-9a-f]{7,}|unknown)$/.test(SystemInformationManager.getGitDescribe()));
        const [module] = SystemInformationManager.getInformationSubmodule();
        gc();
        compare([module.name, module.sha, module.gitDescribe], ["dummy", "dead000", "dummy description"]);
    }
}
