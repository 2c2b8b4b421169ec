// Tries the registered component: makes the object, reads the sample installation, lets the user choose a size, and
// prints what it saw. smoke.cmd starts it.
//   cscript //nologo smoke.js FOLDER [/nodialog]      FOLDER is the installation, with a closing backslash

var folder, dialog;
var passed = 0, failed = 0;
var stdParts;

function print(text) {
    WScript.Echo(text);
}

/// Makes one step and prints its name with what it answers.
function step(name, action) {
    try {
        print("ok      " + name + ": " + action());
        ++passed;
    } catch (error) {
        print("FAILED  " + name + ": " + (error.number ? (error.number >>> 0).toString(16) + " " : "") +
              (error.message || "no reason given"));
        ++failed;
    }
}

function expect(condition, text) {
    if (!condition)
        throw new Error(text);
}

function printSurroundings() {
    var shell = new ActiveXObject("WScript.Shell"), files = new ActiveXObject("Scripting.FileSystemObject");
    var versions = "HKLM\\Software\\Microsoft\\Windows NT\\CurrentVersion\\";
    var wine = files.FileExists(files.GetSpecialFolder(1) + "\\wineboot.exe") ? ", as Wine says" : "";
    print("system  " + shell.RegRead(versions + "ProductName") + ", build " +
          shell.RegRead(versions + "CurrentBuildNumber") + wine);
    print("script  " + ScriptEngine() + " " + ScriptEngineMajorVersion() + "." + ScriptEngineMinorVersion() + "." +
          ScriptEngineBuildVersion() + ", " + shell.Environment("PROCESS")("PROCESSOR_ARCHITECTURE"));
}

function readCatalogues() {
    var catalogs = stdParts.GetXMLDocument("file://" + folder + "catalogs\\Catalogs.xml").selectNodes("/*/Catalog");
    expect(catalogs.length === 8, catalogs.length + " catalogues instead of 8");
    var seen = [];
    for (var i = 0; i < catalogs.length; i++) {
        var id = catalogs.item(i).selectSingleNode("ID").text;
        var name = stdParts.GetLocalizedString("", catalogs.item(i).selectSingleNode("Name").text);
        seen.push(name + " (" + stdParts.GetComponentsDocument(id).selectNodes("//Part").length + ")");
    }
    return seen.join(", ");
}

function part() {
    return stdParts.GetComponentsDocument("SCREWS").selectSingleNode("//Part[ID='ISO4762']");
}

function standardRows() {
    return stdParts.GetStdDimensionNode("SCREWS", "ISO4762").selectNodes("Row");
}

function userRows() {
    return stdParts.GetUsrDimensionNode("SCREWS", "ISO4762").selectNodes("Row");
}

function readSizes() {
    var standard = standardRows().length, users = userRows().length;
    expect(standard === 144 && users === 8, standard + " and " + users + " sizes instead of 144 and 8");
    return standard + " standard sizes, " + users + " of the user";
}

function refuseWrongArguments() {
    try {
        stdParts.ChooseDimensions("SCREWS", "ISO4762", part(), null, null, null);
    } catch (error) {
        expect(error.number >>> 0 === 0x80070057, "error " + (error.number >>> 0).toString(16));
        return "a node in place of the list of names is an invalid argument";
    }
    throw new Error("a node was taken for the list of names");
}

function writeFile() {
    var files = new ActiveXObject("Scripting.FileSystemObject");
    var name = files.GetSpecialFolder(2) + "\\" + files.GetTempName();
    stdParts.SaveFile(name, "first\nsecond");
    var size = files.GetFile(name).Size;
    files.DeleteFile(name);
    expect(size === 12, size + " bytes instead of 12");
    return size + " bytes";
}

function chooseSize() {
    print("        In the dialog: click on a caption and define a filter, hold the right button on a cell,");
    print("        take a row and press OK.");
    var chosen = stdParts.ChooseDimensions("SCREWS", "ISO4762", part().selectNodes("Dimensions/*"),
                                           part().selectSingleNode("DefaultValues"), standardRows(), userRows());
    if (!chosen)
        return "cancelled";
    var values = [];
    for (var i = 0; i < chosen.attributes.length; i++)
        values.push(chosen.attributes.item(i).name + "=" + chosen.attributes.item(i).value);
    expect(values.length === 6, values.length + " values instead of 6");
    return values.join("  ");
}

function smoke() {
    printSurroundings();
    step("the object is made", function() {
        stdParts = new ActiveXObject("Tarnvale.nuxStdParts");
        return "Tarnvale.nuxStdParts";
    });
    if (!stdParts)
        return;
    step("a value is kept", function() {
        stdParts.UserData = "some text";
        expect(stdParts.UserData === "some text", "another one was given back");
        return stdParts.UserData;
    });
    step("the installation's paths are set", function() {
        stdParts.SetTRNVPaths(folder + "catalogs\\", folder + "data\\", folder + "gui\\", folder + "custom\\");
        return folder;
    });
    step("the language is found", function() { return stdParts.GetInterfaceLanguage() || "none, texts are English"; });
    step("catalogues are read", readCatalogues);
    step("a component is found", function() {
        return stdParts.GetLocalizedString("SCREWS", part().selectSingleNode("Name").text);
    });
    step("sizes are read", readSizes);
    step("an array becomes a safe array", function() {
        return new VBArray(stdParts.JSArray2SafeArray([1, "two", 3])).toArray().join(" ");
    });
    step("wrong arguments are refused", refuseWrongArguments);
    step("a text file is written", writeFile);
    if (dialog)
        step("a size is chosen", chooseSize);
    else
        print("left out: the dialog");
}

if (WScript.Arguments.length === 0) {
    print("usage: cscript //nologo smoke.js FOLDER [/nodialog]");
    WScript.Quit(2);
}
folder = WScript.Arguments(0).replace(/\\+$/, "\\");
dialog = WScript.Arguments.length === 1;
try {
    smoke();
} catch (error) {
    print("FAILED  " + error.message);
    ++failed;
}
print(passed + " passed, " + failed + " failed");
WScript.Quit(failed ? 1 : 0);
