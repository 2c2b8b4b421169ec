#pragma once

#include <windows.h>

#include <oaidl.h>
#include <servprov.h>

#include "framework/ComPtr.h"
#include "webbrowser/PageReference.h"

namespace nux::webbrowser {

/// The COM object with the platform's interfaces for an object of a page: document, window, element,
/// collection, style, location, event, rectangle. For PageListener::MakeObject.
/// @param services  what documents and windows provide beside each other; may be null
/// @return null for an object that has no interface of its own (PageObject stands for it)
/// Throws std::bad_alloc.
ComPtr<IDispatch> MakeDocumentObject(const PageReference& reference,
                                     const ComPtr<IServiceProvider>& services = {});

// One of a kind, whatever the page calls its class. Null for no object.

ComPtr<IDispatch> MakeCollection(const PageReference& list);
ComPtr<IDispatch> MakeDocument(const PageReference& document, const ComPtr<IServiceProvider>& services);
ComPtr<IDispatch> MakeElement(const PageReference& element);
ComPtr<IDispatch> MakeEvent(const PageReference& event);
ComPtr<IDispatch> MakeLocation(const PageReference& location);
ComPtr<IDispatch> MakeRectangle(const PageReference& rectangle);
ComPtr<IDispatch> MakeStyle(const PageReference& style);
ComPtr<IDispatch> MakeWindow(const PageReference& window, const ComPtr<IServiceProvider>& services);

}  // namespace nux::webbrowser
