// State and values of the automation object.

function test() {
    var parts = new ActiveXObject("Tarnvale.nuxStdParts");
    equal("", parts.UserData, "UserData at first");
    parts.UserData = "Gr\u00f6\u00dfe \u4e2d";
    equal("Gr\u00f6\u00dfe ?", parts.UserData, "UserData is narrow");
    equal("", parts.LastRVCCmdResult, "LastRVCCmdResult at first");
    parts.LastRVCCmdResult = "done";
    equal("done", parts.LastRVCCmdResult, "LastRVCCmdResult");
    parts.UserData = "";
    equal("", parts.userdata, "names are found in any case");

    equal(undefined, parts.GlobalData, "GlobalData at first");
    var values = [5, 2.5, "text", true, null, undefined];
    for (var i = 0; i < values.length; ++i) {
        parts.GlobalData = values[i];
        equal(values[i], parts.GlobalData, "GlobalData " + i);
    }
    var object = {inside: 7};
    parts.GlobalData = object;
    equal(7, parts.GlobalData.inside, "GlobalData holds an object");
    object.inside = 8;
    equal(8, parts.GlobalData.inside, "and it is the same object");
    parts.GlobalData = [1, 2, 3];
    equal(3, parts.GlobalData.length, "GlobalData holds a script's array");

    equal(0, parts.Initialised, "Initialised at first");
    parts.Initialised = 1;
    equal(1, parts.Initialised, "Initialised");
    raises(E_INVALIDARG, "Initialised = 2", function() { parts.Initialised = 2; });
    raises(E_INVALIDARG, "Initialised = -1", function() { parts.Initialised = -1; });
    equal(1, parts.Initialised, "Initialised stays");
    parts.Initialised = 0;

    equal("", parts.Version, "Version gives no text");
    parts.AssertFail();

    equal(null, parts.nux3D, "nux3D at first");
    equal(null, parts.EditedComponent, "EditedComponent");
    equal(null, parts.LifterWizard, "LifterWizard without its class");
    raises(E_FAIL, "RunDieWizard without a 3D side", function() { parts.RunDieWizard(1); });
    raises(E_FAIL, "CreateDieBlock without a 3D side", function() { parts.CreateDieBlock(); });
    raises(E_FAIL, "RunSlideWizard without a 3D side", function() { parts.RunSlideWizard(); });

    var foreign = {MainWindowHWND: 4660};
    raises(E_FAIL, "SetExternalDispatch without a 3D side",
           function() { parts.SetExternalDispatch(foreign); });
    equal(1, parts.Initialised, "set before the 3D side is asked");
    parts.nux3D = foreign;
    equal(4660, parts.nux3D.MainWindowHWND, "nux3D");
    raises(E_FAIL, "SetExternalDispatch with a foreign 3D side",
           function() { parts.SetExternalDispatch(foreign); });
    raises(E_FAIL, "RunDieWizard of a foreign 3D side", function() { parts.RunDieWizard(1); });
    raises(E_FAIL, "CreateDieBlock of a foreign 3D side", function() { parts.CreateDieBlock(); });
    parts.RunSlideWizard();
}

function testDataManager() {
    var parts = new ActiveXObject("Tarnvale.nuxStdParts");
    var data = parts.DataManager;
    raises(E_FAIL, "CatalogName before it was set", function() { return data.CatalogName; });
    raises(E_FAIL, "Units before they were set", function() { return data.Units; });
    raises(E_FAIL, "CavityPlateSizes before they were set", function() { return data.CavityPlateSizes; });
    raises(E_FAIL, "CorePlateSizes before they were set", function() { return data.CorePlateSizes; });
    data.CatalogName = "BOLTS";
    data.Units = "mm";
    equal("BOLTS", data.CatalogName, "CatalogName");
    equal("mm", data.Units, "Units");
    raises(E_INVALIDARG, "Units = 5", function() { data.Units = 5; });
    raises(E_INVALIDARG, "CatalogName = null", function() { data.CatalogName = null; });
    raises(E_INVALIDARG, "a script's array as sizes", function() { data.CavityPlateSizes = [1, 2]; });
    raises(E_INVALIDARG, "a text as sizes", function() { data.CorePlateSizes = "1,2"; });

    data.CavityPlateSizes = parts.JSArray2SafeArray([246, 296, 27]);
    data.CorePlateSizes = parts.JSArray2SafeArray([246, 296, 36]);
    equal("246 296 27", new VBArray(data.CavityPlateSizes).toArray().join(" "), "CavityPlateSizes");
    equal("246 296 36", new VBArray(data.CorePlateSizes).toArray().join(" "), "CorePlateSizes");
    data.ClearData();
    raises(E_FAIL, "CavityPlateSizes after ClearData", function() { return data.CavityPlateSizes; });
    raises(E_FAIL, "CorePlateSizes after ClearData", function() { return data.CorePlateSizes; });
    equal("mm", data.Units, "Units after ClearData");
    equal("BOLTS", data.CatalogName, "CatalogName after ClearData");
}

function testArrays() {
    var parts = new ActiveXObject("Tarnvale.nuxStdParts");
    function back(array) {
        return new VBArray(parts.JSArray2SafeArray(array)).toArray();
    }
    equal("1|two|3.5", back([1, "two", 3.5]).join("|"), "mixed elements");
    equal(0, back([]).length, "an empty array");
    equal("b", back([["a"], ["b"]])[1][0], "nested arrays");
    equal("x y", back({length: 2, 0: "x", 1: "y"}).join(" "), "what looks like an array");
    raises(E_FAIL, "a sparse array", function() { parts.JSArray2SafeArray([1, , 3]); });
    raises(E_FAIL, "an array without elements", function() { parts.JSArray2SafeArray(new Array(3)); });
    raises(E_FAIL, "a length below zero", function() { parts.JSArray2SafeArray({length: -1}); });
    raises(E_INVALIDARG, "no length", function() { parts.JSArray2SafeArray({}); });
    raises(E_INVALIDARG, "a text as length", function() { parts.JSArray2SafeArray({length: "1", 0: 1}); });
}

test();
testDataManager();
testArrays();
finish();
