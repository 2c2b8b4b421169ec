// Operations that this version does not offer yet say so, and nothing else.

var parts = new ActiveXObject("Tarnvale.nuxStdParts");

function notOffered(name, call) {
    raises(E_NOTIMPL, name, call);
}

notOffered("SetEditedComponent", function() { parts.SetEditedComponent(null, 0); });
notOffered("Navigate", function() { parts.Navigate("page.htm"); });
notOffered("CatalogID", function() { return parts.CatalogID; });
notOffered("ComponentID", function() { return parts.ComponentID; });
notOffered("SetStatusMessage", function() { parts.SetStatusMessage("text"); });
notOffered("CreateProgressBar", function() { parts.CreateProgressBar(); });
notOffered("DestroyProgressBar", function() { parts.DestroyProgressBar(); });
notOffered("UpdateProgressBar", function() { parts.UpdateProgressBar(50); });
notOffered("ExecuteFileInShell", function() { parts.ExecuteFileInShell("file.txt"); });
notOffered("GetSaveFileName", function() { parts.GetSaveFileName("title", "All|*.*", "file", "txt"); });
notOffered("NewComponent", function() { parts.NewComponent(0); });
notOffered("GetComponent", function() { parts.GetComponent("BOLTS", "M8"); });
notOffered("WebBrowser", function() { return parts.WebBrowser; });
notOffered("MessageBox", function() { parts.MessageBox("text", "title", 0); });
notOffered("AttachBrowser", function() { parts.AttachBrowser(parts); });
notOffered("StatusBar", function() { parts.StatusBar = parts; });
notOffered("UnLoadStatusBar", function() { parts.UnLoadStatusBar(); });
notOffered("TRNVExportDlg", function() { parts.TRNVExportDlg(1); });
notOffered("MessageBoxHTML", function() { parts.MessageBoxHTML("text", "title", 0, true, 0, 0); });
notOffered("ShowHTMLModelessDialog",
           function() { parts.ShowHTMLModelessDialog("title", "page.htm", 0, 0, 100, 100, null); });
notOffered("ShowHTMLModalDialog",
           function() { parts.ShowHTMLModalDialog("title", "page.htm", 0, 0, 100, 100, null); });
notOffered("DeleteClosedModelessIEDlgs", function() { parts.DeleteClosedModelessIEDlgs(); });
finish();
