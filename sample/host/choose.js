// A script client of nuxStdParts: lets the user choose a size of a component, as a wizard page does, and prints the
// attributes of the chosen row.
//   cscript //nologo choose.js FOLDER      FOLDER is the installation, with a closing backslash
// choose.vbs is the same in VBScript.

var catalog = "SCREWS", component = "ISO4762";

function choose(folder) {
    var stdParts = new ActiveXObject("Tarnvale.nuxStdParts");
    stdParts.SetTRNVPaths(folder + "catalogs\\", folder + "data\\", folder + "gui\\", folder + "custom\\");

    var part = stdParts.GetComponentsDocument(catalog).selectSingleNode("//Part[ID='" + component + "']");
    var chosen = stdParts.ChooseDimensions(catalog, component,
                                           part.selectNodes("Dimensions/*"), part.selectSingleNode("DefaultValues"),
                                           stdParts.GetStdDimensionNode(catalog, component).selectNodes("Row"),
                                           stdParts.GetUsrDimensionNode(catalog, component).selectNodes("Row"));
    if (!chosen) {
        WScript.Echo("nothing chosen");
        return;
    }
    var values = [];
    for (var i = 0; i < chosen.attributes.length; i++)
        values.push(chosen.attributes.item(i).name + "=" + chosen.attributes.item(i).value);
    WScript.Echo("chosen: " + values.join("  "));
}

// Not every script host tells of an error that nobody catches.
try {
    choose(WScript.Arguments(0));
} catch (error) {
    WScript.Echo("choose.js: error " + (error.number >>> 0).toString(16) + " " + error.message);
    WScript.Quit(1);
}
