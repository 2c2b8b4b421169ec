#pragma once

#include <windows.h>

#include <msxml2.h>

#include <optional>
#include <utility>
#include <vector>

#include "framework/Variant.h"
#include "tests/support/HostDouble.h"

namespace nux {

/// A node list that hands out nodes of the test, one of them as often as it likes. It keeps no references.
class NodeListDouble : public CalledByNumber<IXMLDOMNodeList> {
public:
    explicit NodeListDouble(std::vector<IXMLDOMNode*> nodes) : nodes_(std::move(nodes)) {}

    STDMETHODIMP get_item(LONG, IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP get_length(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP nextNode(IXMLDOMNode** node) override {
        *node = next_ < nodes_.size() ? nodes_[next_++] : nullptr;
        if (!*node)
            return S_FALSE;
        (*node)->AddRef();
        return S_OK;
    }
    STDMETHODIMP reset() override {
        next_ = 0;
        return S_OK;
    }
    STDMETHODIMP get__newEnum(IUnknown**) override { return E_NOTIMPL; }

protected:
    void* FindInterface(REFIID iid) noexcept {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IXMLDOMNodeList;
        return known ? static_cast<IXMLDOMNodeList*>(this) : nullptr;
    }

private:
    std::vector<IXMLDOMNode*> nodes_;
    std::size_t next_ = 0;
};

/// A node that has a name at most, and what a test gives it.
class NameDouble : public CalledByNumber<IXMLDOMNode> {
public:
    /// @param name  none: the name can't be read
    explicit NameDouble(std::optional<std::wstring> name) : name_(std::move(name)) {}

    Variant value;                ///< empty: it can't be read
    IXMLDOMNode* text = nullptr;  ///< what any selection finds; not held

    STDMETHODIMP get_nodeName(BSTR* name) override {
        *name = name_ ? SysAllocString(name_->c_str()) : nullptr;
        return name_ ? S_OK : E_FAIL;
    }
    STDMETHODIMP get_nodeValue(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_nodeValue(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_nodeType(DOMNodeType*) override { return E_NOTIMPL; }
    STDMETHODIMP get_parentNode(IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP get_childNodes(IXMLDOMNodeList**) override { return E_NOTIMPL; }
    STDMETHODIMP get_firstChild(IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP get_lastChild(IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP get_previousSibling(IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP get_nextSibling(IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP get_attributes(IXMLDOMNamedNodeMap**) override { return E_NOTIMPL; }
    STDMETHODIMP insertBefore(IXMLDOMNode*, VARIANT, IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP replaceChild(IXMLDOMNode*, IXMLDOMNode*, IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP removeChild(IXMLDOMNode*, IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP appendChild(IXMLDOMNode*, IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP hasChildNodes(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP get_ownerDocument(IXMLDOMDocument**) override { return E_NOTIMPL; }
    STDMETHODIMP cloneNode(VARIANT_BOOL, IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP get_nodeTypeString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_text(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_text(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_specified(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP get_definition(IXMLDOMNode**) override { return E_NOTIMPL; }
    STDMETHODIMP get_nodeTypedValue(VARIANT* typed) override {
        return value.Type() == VT_EMPTY ? E_NOTIMPL : value.CopyTo(typed);
    }
    STDMETHODIMP put_nodeTypedValue(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_dataType(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_dataType(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_xml(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP transformNode(IXMLDOMNode*, BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP selectNodes(BSTR, IXMLDOMNodeList**) override { return E_NOTIMPL; }
    STDMETHODIMP selectSingleNode(BSTR, IXMLDOMNode** found) override {
        if (!text)
            return E_NOTIMPL;
        text->AddRef();
        *found = text;
        return S_OK;
    }
    STDMETHODIMP get_parsed(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP get_namespaceURI(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_prefix(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_baseName(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP transformNodeToObject(IXMLDOMNode*, VARIANT) override { return E_NOTIMPL; }

protected:
    void* FindInterface(REFIID iid) noexcept {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IXMLDOMNode;
        return known ? static_cast<IXMLDOMNode*>(this) : nullptr;
    }

private:
    std::optional<std::wstring> name_;
};

}  // namespace nux
