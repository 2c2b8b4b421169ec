// The component with the objects of a host, which Tarnvale.SampleHost gives out.

var files = new ActiveXObject("Scripting.FileSystemObject");
var folder = WScript.Arguments(0) + "\\";
var host = new ActiveXObject("Tarnvale.SampleHost");

var RPC_E_DISCONNECTED = 0x80010108;

function write(name, text) {
    var file = files.CreateTextFile(folder + name, true);
    file.Write(text);
    file.Close();
}

function makeInstallation() {
    var folders = ["catalogs", "catalogs\\BOLTS", "elsewhere", "data", "gui", "custom"];
    for (var i = 0; i < folders.length; ++i)
        files.CreateFolder(folder + folders[i]);
    function part(id) { return "<Part><ID>" + id + "</ID><Geometry>page.htm</Geometry></Part>"; }
    write("catalogs\\BOLTS\\Catalog.xml", "<Catalog>" + part("M8") + part("M10") + "</Catalog>");
    write("catalogs\\Catalog.xml", "<Catalog>" + part("ROOT") + "</Catalog>");
    write("elsewhere\\Catalog.xml", "<Catalog>" + part("FAR") + "</Catalog>");
    write("catalogs\\BOLTS\\page.htm", "<p>Bolt</p>");
    write("data\\Tarnvale.htm", "<p>Start</p>");
}

function start() {
    host.Restore();
    var parts = host.Start(folder + "catalogs\\", folder + "data\\", folder + "gui\\", folder + "custom\\");
    host.ClearCalls();
    return parts;
}

/// What the component has asked since the last look.
function asked(expected, what) {
    equal(expected.join("\n"), host.Calls, what);
    host.ClearCalls();
}

function testStart() {
    var parts = host.Start(folder + "catalogs\\", folder + "data\\", folder + "gui\\", folder + "custom\\");
    asked(["Inux3DReady", "AttachHost", "MainWindowHWND", "GetWindow"], "what a start asks");
    equal(1, parts.Initialised, "Initialised");
    parts.UserData = "kept";
    equal("kept", host.StdParts.UserData, "StdParts of the host");
    equal("kept", host.ExternalDispatch.StdParts.UserData, "StdParts of the external dispatch");
}

function testStatusBar() {
    var parts = start();
    parts.SetStatusMessage("Gr\u00f6\u00dfe");
    parts.CreateProgressBar();
    parts.UpdateProgressBar(40);
    asked(["SetMessage Gr\u00f6\u00dfe", "CreateProgressBar", "SetProgress 40"], "the status bar");
    equal("Gr\u00f6\u00dfe", host.StatusBar.Message, "its message");
    equal(40, host.StatusBar.Progress, "its progress");
    isTrue(host.StatusBar.HasProgressBar, "its progress bar");
    parts.DestroyProgressBar();
    equal(false, host.StatusBar.HasProgressBar, "no progress bar any more");

    host.Fail("SetProgress", E_FAIL, 2);
    parts.UpdateProgressBar(1);
    raises(E_FAIL, "the second SetProgress", function() { parts.UpdateProgressBar(2); });
    parts.UpdateProgressBar(3);
    host.ClearCalls();
    parts.UnLoadStatusBar();
    parts.SetStatusMessage("nobody sees it");
    asked([], "without a status bar");

    var members = ["SetMessage", "SetProgress", "CreateProgressBar", "DestroyProgressBar"];
    for (var i = 0; i < members.length; ++i) {
        host.Restore();
        parts.StatusBar = host.StatusBar;
        host.StatusBarLacks(members[i]);
        raises(E_FAIL, "a status bar without " + members[i], function() { parts.StatusBar = host.StatusBar; });
        parts.SetStatusMessage("nobody sees it");
        asked([], "the old status bar is gone too");
    }
}

function testNavigation() {
    var parts = start();
    var url = "file://" + folder + "data\\Tarnvale.htm";
    parts.Navigate(url);
    asked(["Navigate " + url], "a page");
    equal(url, parts.WebBrowser.LocationURL, "the browser's address");
    host.ClearCalls();

    host.BrowserBusy = true;
    parts.Navigate("http://host.invalid/page");
    asked(["Navigate http://host.invalid/page"], "no file, and a browser that is busy");
    isTrue(parts.WebBrowser.Busy, "Busy");
    host.BrowserBusy = false;

    host.Fail("Navigate", 0x8007000E);
    parts.Navigate(url);
    parts.SetEditedComponent(host.EditComponent("BOLTS", "M8"), 0);
    host.ClearCalls();
    parts.Navigate(url);
    asked(["Close", "Navigate " + url + ": 8007000E"], "a browser that fails is not told");
    equal(null, parts.EditedComponent, "the edited component is closed");

    host.Restore();
    host.BrowserDead = true;
    host.ClearCalls();
    parts.Navigate(url);
    asked(["Navigate " + url + ": 80010108"], "a browser whose process has ended");
    try {
        parts.WebBrowser.Stop();
        fail("Stop worked");
    } catch (error) {
        equal(RPC_E_DISCONNECTED, error.number >>> 0, "a call of it");
    }
    host.BrowserDead = false;
}

function testEditedComponent() {
    var parts = start();
    var url = "file://" + folder + "catalogs\\BOLTS\\page.htm";
    var edited = host.EditComponent("BOLTS", "M8");
    parts.SetEditedComponent(edited, 0);
    asked([], "an edited component that is only kept");
    isTrue(parts.EditedComponent !== null, "EditedComponent");
    parts.SetEditedComponent(edited, 1);
    asked(["GetValue Catalog", "GetValue ID", "GetApplication", "CatalogFolder BOLTS", "Navigate " + url],
          "an edited component whose page is opened");
    equal("", parts.CatalogID, "CatalogID stays");
    equal("M8", parts.EditedComponent.GetValue("ID"), "it is the host's object");
    host.ClearCalls();

    parts.SetEditedComponent(null, 0);
    asked(["Navigate file://" + folder + "data\\Tarnvale.htm"], "none: the default page");
    equal(null, parts.EditedComponent, "EditedComponent of none");
    raises(E_INVALIDARG, "a foreign object", function() { parts.SetEditedComponent(host.StatusBar, 1); });
    host.ClearCalls();
}

function testGetComponent() {
    var parts = start();
    parts.SetEditedComponent(host.EditComponent("BOLTS", "M8"), 0);
    parts.GetComponent("BOLTS", "M10");
    asked(["Close", "GetApplication", "CatalogFolder BOLTS"], "GetComponent");
    equal("BOLTS", parts.CatalogID, "CatalogID");
    equal("M10", parts.ComponentID, "ComponentID");
    equal(null, parts.EditedComponent, "nothing is edited any more");

    host.SetCatalogFolder("FAR", folder + "elsewhere\\");
    parts.GetComponent("FAR", "FAR");
    equal("FAR", parts.ComponentID, "a catalogue that lies elsewhere");

    // Where the host can't tell, the root of all catalogues stands for the catalogue.
    var wrong = [
        function() { host.Answer("CatalogFolder", 7); }, function() { host.Answer("CatalogFolder", null); },
        function() { host.Fail("CatalogFolder", E_FAIL); }, function() { host.Fail("GetApplication", E_FAIL); }
    ];
    for (var i = 0; i < wrong.length; ++i) {
        host.Restore();
        parts.GetComponent("BOLTS", "M8");
        wrong[i]();
        parts.GetComponent("BOLTS", "ROOT");
        equal("ROOT", parts.ComponentID, "the root, " + i);
    }
    host.Restore();
}

function testWizards() {
    var parts = start();
    parts.RunDieWizard(3);
    parts.CreateDieBlock();
    parts.RunSlideWizard();
    parts.LifterWizard.Run();
    parts.LifterWizard.Run();
    asked(["RunDieWizard 3", "CreateDieBlock", "RunSlideWizard", "LifterWizard", "Run", "Run"], "the wizards");
    host.Fail("RunDieWizard", 0x80004001);
    raises(E_NOTIMPL, "a die wizard that fails", function() { parts.RunDieWizard(1); });
    host.Fail("RunSlideWizard", E_FAIL);
    parts.RunSlideWizard();

    parts = start();
    host.Fail("LifterWizard", E_FAIL, 1);
    equal(null, parts.LifterWizard, "no lifter wizard");
    isTrue(parts.LifterWizard !== null, "it is asked for again");
}

function testExportWithoutMainObject() {
    var parts = start();
    function refused(what) { raises(E_FAIL, what, function() { parts.TRNVExportDlg(1); }); }
    host.Fail("GetApplication", E_FAIL);
    refused("an export without an application");
    host.Restore();
    host.Answer("GetApplication", null);
    refused("an export with a null application");
    host.Restore();
    host.Answer("MainObject", 5);
    refused("an export with a number for an object");
    host.Answer("MainObject", null);
    refused("an export with nothing for an object");
    host.Restore();
}

function testStartsThatFail() {
    host.Restore();
    host.Fail("Inux3DReady", 0x80004002);
    raises(E_FAIL, "a 3D side that isn't ready", start2);
    function start2() {
        host.Start(folder + "catalogs\\", folder + "data\\", folder + "gui\\", folder + "custom\\");
    }
    try {
        start2();
        fail("the start worked");
    } catch (error) {
        equal("SetExternalDispatch has failed.", error.message, "which call failed");
    }
    host.Restore();
    raises(E_INVALIDARG, "an unknown call", function() { host.Fail("Nothing", E_FAIL); });
    raises(E_INVALIDARG, "a call without a value", function() { host.Answer("Navigate", 1); });
    raises(E_INVALIDARG, "a number for an object", function() { host.Answer("GetApplication", 1); });
    raises(E_INVALIDARG, "no member of the status bar", function() { host.StatusBarLacks("Navigate"); });
    raises(E_INVALIDARG, "an unknown object", function() { host.References("Nothing"); });
}

function testReferences() {
    host.Stop();
    host.Restore();
    CollectGarbage();
    var objects = ["Side3D", "Application", "ExternalDispatch", "StatusBar", "EditedComponent"];
    function references() {
        var counts = [];
        for (var i = 0; i < objects.length; ++i)
            counts.push(host.References(objects[i]));
        return counts.join(" ");
    }
    var browserBefore = host.References("Browser");
    var parts = start();
    parts.SetEditedComponent(host.EditComponent("BOLTS", "M8"), 1);
    parts.GetComponent("BOLTS", "M8");
    parts.SetEditedComponent(host.EditComponent("BOLTS", "M8"), 1);
    equal("1 0 1 1 1", references(), "what the component holds");
    host.Stop();
    parts = null;
    CollectGarbage();
    equal("0 0 0 0 0", references(), "nothing is held any more");
    equal(browserBefore + 1, host.References("Browser"), "but for one reference on the browser");
}

makeInstallation();
testStart();
testStatusBar();
testNavigation();
testEditedComponent();
testGetComponent();
testWizards();
testExportWithoutMainObject();
testStartsThatFail();
testReferences();
finish();
