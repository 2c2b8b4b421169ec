// A script client of nuxStdParts: walks through the sample installation and prints what a wizard page can read.
//   cscript //nologo tour.js FOLDER      FOLDER is the installation, with a closing backslash

function print(text) {
    WScript.Echo(text);
}

function childText(node, name) {
    var child = node.selectSingleNode(name);
    return child ? child.text : "";
}

function printSizes(title, root, dimensions, most) {
    var rows = root.selectNodes("*");
    print("  " + title + ": " + rows.length + " sizes");
    for (var i = 0; i < rows.length && i < most; i++) {
        var cells = [];
        for (var d = 0; d < dimensions.length; d++)
            cells.push(dimensions.item(d).nodeName + "=" + rows.item(i).getAttribute(dimensions.item(d).nodeName));
        print("    " + cells.join("  "));
    }
    if (rows.length > most)
        print("    ...");
}

function tour(folder) {
    var stdParts = new ActiveXObject("Tarnvale.nuxStdParts");
    stdParts.SetTRNVPaths(folder + "catalogs\\", folder + "data\\", folder + "gui\\", folder + "custom\\");

    print("Interface language: " + (stdParts.GetInterfaceLanguage() || "none, texts stay English"));

    print("\nCatalogues");
    var catalogs = stdParts.GetXMLDocument("file://" + folder + "catalogs\\Catalogs.xml").selectNodes("/*/Catalog");
    for (var i = 0; i < catalogs.length; i++) {
        var id = childText(catalogs.item(i), "ID");
        var parts = stdParts.GetComponentsDocument(id).selectNodes("//Part");
        print("  " + id + ": " + stdParts.GetLocalizedString("", childText(catalogs.item(i), "Name")) +
              ", " + parts.length);
    }

    var catalog = "SCREWS", component = "ISO4762";
    var part = stdParts.GetComponentsDocument(catalog).selectSingleNode("//Part[ID='" + component + "']");
    print("\n" + catalog + " / " + component);
    print("  " + childText(part, "CodeName") + ": " + stdParts.GetLocalizedString(catalog, childText(part, "Name")));

    var dimensions = part.selectNodes("Dimensions/*");
    for (var d = 0; d < dimensions.length; d++)
        print("  " + stdParts.GetLocalizedString(catalog, dimensions.item(d).text));

    printSizes("StdDimensions", stdParts.GetStdDimensionNode(catalog, component), dimensions, 5);
    printSizes("UsrDimensions", stdParts.GetUsrDimensionNode(catalog, component), dimensions, 5);
}

// Not every script host tells of an error that nobody catches.
try {
    tour(WScript.Arguments(0));
} catch (error) {
    print("tour.js: error " + (error.number >>> 0).toString(16) + " " + error.message);
    WScript.Quit(1);
}
