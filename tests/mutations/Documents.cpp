#include "tests/mutations/Documents.h"

#include "environment/XMLAccess.h"
#include "framework/Text.h"

namespace nux {
namespace {

/// The factory is asked for once: on Wine 8.0 the way to it is longer than that through most of the
/// documents.
IClassFactory* DocumentFactory() {
    static IClassFactory* const factory = [] {
        void* found = nullptr;
        CoGetClassObject(CLSID_DOMDocument30, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, &found);
        return static_cast<IClassFactory*>(found);
    }();
    return factory;
}

}  // namespace

ComPtr<IXMLDOMDocument> Parsed(const std::string& xml) {
    ComPtr<IXMLDOMDocument> document;
    if (FAILED(DocumentFactory()->CreateInstance(nullptr, IdOf<IXMLDOMDocument>(), document.ReceiveVoid())))
        return nullptr;
    document->put_async(VARIANT_FALSE);
    VARIANT_BOOL succeeded = VARIANT_FALSE;
    if (document->loadXML(Bstr(xml, CP_UTF8).Get(), &succeeded) != S_OK)
        return nullptr;
    return document;
}

bool KeepMutated(const TempFolder& folder, const std::string& file, const std::string& xml, Random& random) {
    const std::string url = folder.Url(file);
    if (random.OneIn(4)) {
        folder.Write(file, xml);
        ComPtr<IXMLDOMDocument> document;
        const bool loaded = LoadXMLDocument(url, document.Receive());
        folder.Remove(file);
        return loaded;
    }
    const ComPtr<IXMLDOMDocument> document = Parsed(xml);
    if (!document)
        return false;
    KeepXMLDocument(url, document.Get());
    return true;
}

}  // namespace nux
