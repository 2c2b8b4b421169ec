// Paths, documents, languages, files and the log.

var folder = WScript.Arguments(0) + "\\";
var files = new ActiveXObject("Scripting.FileSystemObject");
var parts = new ActiveXObject("Tarnvale.nuxStdParts");

function makeFolder(name) {
    var path = folder;
    var steps = name.split("\\");
    for (var i = 0; i < steps.length; ++i) {
        path += steps[i] + "\\";
        if (!files.FolderExists(path))
            files.CreateFolder(path);
    }
}

function write(name, text) {
    makeFolder(name.substring(0, name.lastIndexOf("\\")));
    parts.SaveFile(folder + name, text);
}

function read(name) {
    var stream = files.OpenTextFile(folder + name, 1);
    var text = stream.AtEndOfStream ? "" : stream.ReadAll();
    stream.Close();
    return text;
}

function usePaths() {
    parts.SetTRNVPaths(folder + "catalogs\\", folder + "data\\", folder + "gui\\", folder + "custom\\");
}

function testFiles() {
    write("out\\file.txt", "first\nsecond");
    equal("first\nsecond", read("out\\file.txt"), "SaveFile");
    parts.SaveFile(folder + "out\\file.txt", "");
    equal(0, files.GetFile(folder + "out\\file.txt").Size, "an empty text makes an empty file");
    raises(E_FAIL, "SaveFile into a missing folder",
           function() { parts.SaveFile(folder + "missing\\file", "x"); });
    raises(E_FAIL, "SaveFile over a folder", function() { parts.SaveFile(folder + "out", "x"); });
}

function testDocuments() {
    write("catalogs\\BOLTS\\Catalog.xml", "<Catalog><Part><ID>M8</ID><Name>Bolt</Name></Part></Catalog>");
    write("catalogs\\BOLTS\\StdDimensions\\M8.xml", "<Dims><D L='10'/><D L='20'/></Dims>");
    write("custom\\catalogs\\BOLTS\\UsrDimensions\\M8.xml", "<Dims><D L='15'/></Dims>");
    raises(E_FAIL, "a catalogue without paths", function() { parts.GetComponentsDocument("BOLTS"); });
    usePaths();

    var catalogue = parts.GetComponentsDocument("BOLTS");
    equal("Bolt", catalogue.selectSingleNode("//Part[ID='M8']/Name").text, "GetComponentsDocument");
    var url = "file://" + folder + "catalogs\\BOLTS\\Catalog.xml";
    equal("Catalog", parts.GetXMLDocument(url).documentElement.nodeName, "GetXMLDocument");
    raises(E_FAIL, "an unknown catalogue", function() { parts.GetComponentsDocument("NUTS"); });
    raises(E_FAIL, "an unknown document", function() { parts.GetXMLDocument(url + ".missing"); });
    raises(E_FAIL, "an unknown component", function() { parts.GetStdDimensionNode("BOLTS", "M9"); });
    raises(E_FAIL, "a component without user's sizes",
           function() { parts.GetUsrDimensionNode("BOLTS", "M9"); });

    equal(2, parts.GetStdDimensionNode("BOLTS", "M8").selectNodes("D").length, "GetStdDimensionNode");
    equal(1, parts.GetUsrDimensionNode("BOLTS", "M8").selectNodes("D").length, "GetUsrDimensionNode");
    write("catalogs\\BOLTS\\StdDimensions\\M8.xml", "<Dims/>");
    write("custom\\catalogs\\BOLTS\\UsrDimensions\\M8.xml", "<Dims><D/><D/><D/></Dims>");
    equal(2, parts.GetStdDimensionNode("BOLTS", "M8").selectNodes("D").length, "standard sizes are kept");
    equal(3, parts.GetUsrDimensionNode("BOLTS", "M8").selectNodes("D").length, "user's sizes are read again");
    catalogue.documentElement.setAttribute("changed", "by a script");
    equal("by a script", parts.GetComponentsDocument("BOLTS").documentElement.getAttribute("changed"),
          "a document is shared");
    catalogue.removeChild(catalogue.documentElement);
    equal(null, parts.GetComponentsDocument("BOLTS").documentElement, "also when it has lost its root");

    var standard = parts.GetStdDimensionNode("BOLTS", "M8").ownerDocument;
    standard.removeChild(standard.documentElement);
    equal(null, parts.GetStdDimensionNode("BOLTS", "M8"), "a document without a root has no root");
}

function testChoiceOfDimensions() {
    var root = parts.GetUsrDimensionNode("BOLTS", "M8");
    var rows = root.selectNodes("D");
    function refused(what, names, defaults, standard, users) {
        raises(E_INVALIDARG, what,
               function() { parts.ChooseDimensions("BOLTS", "M8", names, defaults, standard, users); });
    }
    refused("a node as names", root, null, rows, rows);
    refused("a list as the values that are selected first", rows, rows, rows, rows);
    refused("a node as standard rows", rows, root, root, rows);
    refused("another object as user's rows", rows, root, rows, files);
}

function testLanguage() {
    usePaths();
    equal("", parts.GetInterfaceLanguage(), "no language is installed");
    equal("Bolt", parts.GetLocalizedString("SCRIPTED", "Bolt"), "nothing is translated");
    write("locale\\English\\SCRIPTED_Msgs.xml", "<Messages><MsgID>Bolt</MsgID><T>A bolt</T></Messages>");
    write("locale\\English\\AutoFeatures_Msgs.xml",
          "<Messages><MsgID>Bolt</MsgID><T>A feature</T></Messages>");
    usePaths();
    equal("English", parts.GetInterfaceLanguage(), "the short name of the language");
    equal("A bolt", parts.GetLocalizedString("SCRIPTED", "Bolt"), "a message");
    equal("Nut", parts.GetLocalizedString("SCRIPTED", "Nut"), "a missing message");
    equal("", parts.GetLocalizedString("SCRIPTED", ""), "an empty one");
    equal("A feature", parts.GetLocalizedString("Features", "Bolt"), "two catalogues share a file");
}

function testLog() {
    parts.WriteDebugString("lost");
    equal(0, parts.DebugSessionStatus, "no session");
    parts.DebugSessionStatusAndLogFile = folder + "log";
    equal(1, parts.DebugSessionStatus, "a session");
    parts.WriteDebugString("one");
    parts.WriteDebugString("two\n");
    parts.DebugSessionStatus = 0;
    parts.WriteDebugString("three");
    equal(0, parts.DebugSessionStatus, "the session is over");
    var stamp = /\d\d\/\d\d\/\d\d \d\d:\d\d:\d\d /g;
    equal("#one#two\n#three", read("log").replace(stamp, "#"), "the log");
    parts.DebugSessionStatus = 7;
    equal(1, parts.DebugSessionStatus, "any number but 0 is 1");
    parts.DebugSessionStatusAndLogFile = "";
    equal(0, parts.DebugSessionStatus, "an empty name ends the session");
}

testFiles();
testDocuments();
testChoiceOfDimensions();
testLanguage();
testLog();
finish();
