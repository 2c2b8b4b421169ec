// A script client of nuxStdParts: lets the user choose a size of a component, as a wizard page does, and prints the
// attributes of the chosen row.
//   cscript //nologo choose.js FOLDER      FOLDER is the installation, with a closing backslash

var folder = WScript.Arguments(0);
var catalog = "SCREWS", component = "ISO4762";

var stdParts = new ActiveXObject("Tarnvale.nuxStdParts");
stdParts.SetTRNVPaths(folder + "catalogs\\", folder + "data\\", folder + "gui\\", folder + "custom\\");

var part = stdParts.GetComponentsDocument(catalog).selectSingleNode("//Part[ID='" + component + "']");
var chosen = stdParts.ChooseDimensions(catalog, component,
                                       part.selectNodes("Dimensions/*"), part.selectSingleNode("DefaultValues"),
                                       stdParts.GetStdDimensionNode(catalog, component).selectNodes("Row"),
                                       stdParts.GetUsrDimensionNode(catalog, component).selectNodes("Row"));
if (chosen) {
    var attributes = chosen.attributes, values = [];
    for (var i = 0; i < attributes.length; i++)
        values.push(attributes.item(i).name + "=" + attributes.item(i).value);
    WScript.Echo("chosen: " + values.join("  "));
} else {
    WScript.Echo("nothing chosen");
}
