// What a page's script asks of its user and of the system, as the test of the services runs it: it prints what it gets.
//   cscript //nologo services.js FOLDER      FOLDER is an installation, with a closing backslash

function print(text) {
    WScript.Echo(text);
}

function failure(call) {
    try {
        call();
        return "none";
    } catch (error) {
        return (error.number >>> 0).toString(16) + " " + error.message;
    }
}

var folder = WScript.Arguments(0);
var host = new ActiveXObject("Tarnvale.SampleHost");
var parts = host.Start(folder + "catalogs\\", folder + "data\\", folder + "gui\\", folder + "custom\\");

print("saved: " + parts.GetSaveFileName("Where to?", "Texts|*.txt|All|*.*", "first.txt", "txt"));
print("not saved: [" + parts.GetSaveFileName("Where to?", "Texts|*.txt|All|*.*", "first.txt", "txt") + "]");
print("file of an export: " + parts.TRNVExportDlg(1));
print("none: [" + parts.TRNVExportDlg(1) + "]");
print("no folder of an export: [" + parts.TRNVExportDlg(0) + "]");

parts.ExecuteFileInShell(folder + "file.nuxtest");
print("not opened: " + failure(function() { parts.ExecuteFileInShell(folder + "none\\file.nuxnone"); }));

print("no browser: " + failure(function() { parts.AttachBrowser(host.StatusBar); }));
print("attached: " + parts.WebBrowser);
parts.AttachBrowser(host.Browser);
parts.Navigate("file://" + folder + "data\\Tarnvale.htm");
print("page: " + host.Browser.LocationURL.substr(7 + folder.length));

parts.UnLoadStatusBar();
host.ClearCalls();
parts.SetStatusMessage("nobody shows it");
print("asked: [" + host.Calls + "]");
