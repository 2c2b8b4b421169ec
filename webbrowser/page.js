// Runs in each document before its own scripts: joins it to the program that shows it. What a page sees of it are
// window.external, ActiveXObject, VBArray, Enumerator and a few properties of window that differ from the browser's.
// `key` goes with each request to the program; it isn't for frames of a foreign origin, which could send requests as well.
(key => {
    'use strict';
    const reporter = window.__nuxReport;
    delete window.__nuxReport;
    // The browser answers their requests itself, and would give them any file of the system below.
    delete window.Worker;
    delete window.SharedWorker;

    // A frame shares the table, and so the objects, of the page that it is in. One of a foreign origin has none.
    let page = null;
    if (window !== window.top) {
        try {
            page = window.top.__nuxPage;
        } catch {
            return;
        }
    }

    // What a page may put others in the place of.
    const {parse, stringify} = JSON;
    const {open, send} = XMLHttpRequest.prototype;
    const Request = XMLHttpRequest;
    const tagOf = Object.prototype.toString;
    const globalEval = window.eval;
    const {addEventListener} = window;

    const listeners = [];  // of the window: arguments of addEventListener

    /// A message as JSON. Old libraries give arrays and objects a toJSON, which stringify alone would heed.
    function textOf(value) {
        if (value === null || typeof value !== 'object')
            return stringify(value) ?? 'null';
        return Array.isArray(value) ? '[' + value.map(textOf).join(',') + ']' :
            '{' + Object.keys(value).map(name => stringify(name) + ':' + textOf(value[name])).join(',') + '}';
    }

    page ??= makePage();
    Object.defineProperty(window, '__nuxPage', {value: page, configurable: true});
    joinWindow(page);

    function makePage() {
        const document = Math.random().toString(36).slice(2);
        const held = new Map();     // objects of the page that the program holds: number to {object, sent}
        const numbers = new WeakMap();
        let lastNumber = 0;
        const proxies = new Map();  // objects of the program: number to {info, proxy}, the proxy held weakly
        const infos = new WeakMap();
        const types = new Map();    // methods by type of object: a Set of names
        const functions = new Map();
        const released = [];
        const disconnected = -2147417848;  // RPC_E_DISCONNECTED
        const unsupported = -2146827850;   // no such property or method, as script engines have it

        const collected = new FinalizationRegistry(info => {
            if (proxies.get(info.number)?.info === info)
                proxies.delete(info.number);
            if (released.push([info.number, info.received]) === 1)
                setTimeout(tellReleased, 0);
        });
        function tellReleased() {
            if (released.length > 0)
                report(['release', released.splice(0)]);
        }

        function failure(number, description) {
            const error = new Error(description);
            error.number = number;
            error.description = description;
            return error;
        }

        function kindOf(object, name) {
            if (typeof object === 'function')
                return 'function';
            if (Array.isArray(object))
                return 'array';
            if (name === 'Window')
                return 'window';
            const {nodeType} = object;
            if (typeof nodeType === 'number' && typeof object.nodeName === 'string')
                return nodeType === 1 ? 'element' : nodeType === 9 ? 'document' : 'node';
            if (name === 'CSSStyleDeclaration')
                return 'style';
            if (name.endsWith('Event') && typeof object.preventDefault === 'function')
                return 'event';
            if (typeof object.length === 'number' && (name === 'Arguments' || typeof object.item === 'function'))
                return 'list';
            return 'object';
        }

        function hold(object) {
            let number = numbers.get(object);
            if (number === undefined) {
                number = ++lastNumber;
                numbers.set(object, number);
            }
            let entry = held.get(number);
            if (!entry) {
                let name = 'Object';
                let kind = 'object';
                try {
                    name = tagOf.call(object).slice(8, -1);
                    kind = kindOf(object, name);
                } catch {
                    // A window of a foreign origin tells nothing.
                }
                held.set(number, entry = {object, sent: 0, kind, name});
            }
            ++entry.sent;
            return {p: number, g: document, k: entry.kind, c: entry.name};
        }

        function encode(value) {
            switch (typeof value) {
            case 'undefined':
                if (value === undefined)
                    return {u: 0};
                break;  // document.all says that it is of this type
            case 'boolean':
                return value;
            case 'bigint':
                return encode(Number(value));
            case 'number':
                return Number.isFinite(value) && !Object.is(value, -0) ? value :
                    {n: Object.is(value, -0) ? '-0' : String(value)};
            case 'string':
                return value.isWellFormed() ? value : {w: Array.from({length: value.length}, (_, i) => value.charCodeAt(i))};
            case 'symbol':
                return String(value);
            }
            if (value === null)
                return null;
            const info = infos.get(value);
            if (info)
                return {x: info.number};
            switch (tagOf.call(value)) {
            case '[object Date]': {
                const time = Date.prototype.getTime.call(value);
                return {d: Number.isNaN(time) ? null : time};
            }
            case '[object String]':
            case '[object Number]':
            case '[object Boolean]': {
                const plain = value.valueOf();
                if (typeof plain !== 'object')
                    return encode(plain);
            }
            }
            return hold(value);
        }

        function encodeError(error) {
            let number = 0;
            let description = '';
            try {
                if (error !== null && typeof error === 'object') {
                    number = typeof error.number === 'number' ? error.number | 0 : 0;
                    description = String(error.description ?? error.message ?? error);
                } else {
                    description = String(error);
                }
            } catch {
                // It has no words.
            }
            return {e: number, m: encode(description)};
        }

        function decode(value) {
            if (value === null || typeof value !== 'object')
                return value;
            if (Array.isArray(value))
                return value.map(decode);
            if ('u' in value)
                return undefined;
            if ('n' in value)
                return Number(value.n);
            if ('w' in value)
                return value.w.reduce((text, unit) => text + String.fromCharCode(unit), '');
            if ('d' in value)
                return new Date(value.d ?? NaN);
            if ('p' in value) {
                const entry = value.g === document && held.get(value.p);
                if (!entry)
                    throw failure(disconnected, 'The object belongs to a document that is no longer shown');
                return entry.object;
            }
            if ('x' in value)
                return proxyOf(value.x, value.t, value.f);
            return failure(value.e, decode(value.m));
        }

        function post(message) {
            const request = new Request();
            open.call(request, 'POST', 'http://external.invalid/', false);
            send.call(request, key + textOf(message));
            return parse(request.responseText);
        }

        /// Asks the program and waits. While it thinks, it may run functions here.
        function ask(...message) {
            let answer = post(message);
            while (answer[0] === 'run')
                answer = post(['done', run(...answer.slice(1))]);
            if (answer[0] === 'throw')
                throw decode(answer[1]);
            return answer;
        }

        function run(source, values, dropped, gone) {
            try {
                for (const [number, count] of dropped) {
                    const entry = held.get(number);
                    if (entry && gone === document && (entry.sent -= count) <= 0)
                        held.delete(number);
                }
                let called = functions.get(source);
                if (!called)
                    functions.set(source, called = globalEval('(' + source + ')'));
                return ['value', encode(called.apply(window, values.map(decode)))];
            } catch (error) {
                return ['throw', encodeError(error)];
            }
        }

        function makeMethod(proxy, info, name) {
            return function (...values) {
                return decode(ask('call', info.number, name, values.map(encode))[1]);
            };
        }

        const handler = {
            get(target, name, proxy) {
                const info = infos.get(proxy);
                if (!info)
                    return undefined;
                if (typeof name === 'symbol') {
                    if (name === Symbol.toPrimitive)
                        return () => primitiveOf(info);
                    if (name === Symbol.iterator)
                        return () => elementsOf(info).values();
                    return undefined;
                }
                let method = info.methods.get(name);
                if (method)
                    return method;
                if (!types.get(info.type)?.has(name)) {
                    const answer = ask('get', info.number, name);
                    if (answer[0] === 'value')
                        return decode(answer[1]);
                    if (answer[0] === 'unknown')
                        return name === 'toString' || name === 'valueOf' ? () => primitiveOf(info) :
                            Object.prototype[name];
                    if (!types.has(info.type))
                        types.set(info.type, new Set());
                    types.get(info.type).add(name);
                }
                info.methods.set(name, method = makeMethod(proxy, info, name));
                return method;
            },
            set(target, name, value, proxy) {
                const info = infos.get(proxy);
                if (typeof name === 'symbol' || !info)
                    return false;
                ask('put', info.number, name, encode(value));
                return true;
            },
            has(target, name) {
                return typeof name === 'string' && ask('has', target.number, name)[1];
            },
            ownKeys(target) {
                return ask('keys', target.number)[1];
            },
            getOwnPropertyDescriptor(target, name) {
                if (typeof name === 'symbol')
                    return undefined;
                const value = infos.get(target.proxy) && handler.get(target, name, target.proxy);
                return value === undefined ? undefined : {value, writable: true, enumerable: true, configurable: true};
            },
            defineProperty() {
                return false;
            },
            deleteProperty() {
                return false;
            },
            getPrototypeOf() {
                return Object.prototype;
            },
            apply(target, self, values) {
                return decode(ask('call', target.number, '', values.map(encode))[1]);
            },
        };

        function primitiveOf(info) {
            const answer = ask('get', info.number, '');
            const value = answer[0] === 'value' ? decode(answer[1]) : undefined;
            return value === undefined || (typeof value === 'object' && value !== null) ? '[object]' : value;
        }

        function elementsOf(info) {
            return decode(ask('elements', info.number)[1]);
        }

        function proxyOf(number, type, callable) {
            const known = proxies.get(number);
            const living = known?.proxy.deref();
            if (living) {
                ++known.info.received;
                return living;
            }
            const info = {number, type: type || 'n' + number, received: 1, methods: new Map()};
            // What the traps that aren't told the proxy know of it. A function without a prototype of its own has no
            // property that a proxy would have to show.
            const target = callable ? () => {} : {};
            const proxy = new Proxy(target, handler);
            target.number = number;
            Object.defineProperty(target, 'proxy', {get: () => proxies.get(number)?.proxy.deref(), configurable: true});
            infos.set(proxy, info);
            proxies.set(number, {info, proxy: new WeakRef(proxy)});
            collected.register(proxy, info);
            return proxy;
        }

        // The object that the program gives to its pages; it is asked for at each use, so never released.
        const external = proxyOf(0, 0, false);

        return {
            run: (...message) => textOf(run(...message)),
            external,
            make: name => decode(ask('make', String(name))[1]),
            elements: value => infos.has(value) ? elementsOf(infos.get(value)) : Array.from(value),
            report: (what, ...values) => report([what, ...values.map(encode)]),
        };
    }

    function report(message) {
        reporter(textOf(message));
    }

    function joinWindow(page) {
        const define = (name, value) => Object.defineProperty(window, name, {value, writable: true, configurable: true});
        Object.defineProperty(window, 'external', {get: () => page.external, set() {}, configurable: true});

        define('ActiveXObject', function ActiveXObject(name) {
            return page.make(name);
        });

        // Walks a collection as scripts of the platform do.
        define('Enumerator', class Enumerator {
            #elements;
            #at = 0;
            constructor(collection) {
                this.#elements = collection === undefined ? [] : page.elements(collection);
            }
            atEnd() {
                return this.#at >= this.#elements.length;
            }
            item() {
                return this.#elements[this.#at];
            }
            moveFirst() {
                this.#at = 0;
            }
            moveNext() {
                ++this.#at;
            }
        });

        // Arrays of the program are arrays of the page already.
        define('VBArray', class VBArray {
            #array;
            constructor(array) {
                this.#array = array;
            }
            toArray() {
                return Array.from(this.#array.flat(Infinity));
            }
            dimensions() {
                let count = 0;
                for (let each = this.#array; Array.isArray(each); each = each[0])
                    ++count;
                return count;
            }
            lbound() {
                return 0;
            }
            ubound(dimension = 1) {
                let each = this.#array;
                for (let i = 1; i < dimension; ++i)
                    each = each[0];
                return each.length - 1;
            }
            getItem(...indices) {
                return indices.reduce((each, index) => each[index], this.#array);
            }
        });

        if (window === window.top) {
            let status = '';
            Object.defineProperty(window, 'status', {
                get: () => status,
                set(text) {
                    status = String(text);
                    page.report('status', status);
                },
                configurable: true,
            });
            define('close', () => page.report('close'));
        }
        const openWindow = window.open;
        define('open', (address, name) => {
            const isBlank = address === undefined || address === '';
            if (name !== undefined && isFrame(window.top, String(name)))
                return openWindow.call(window, isBlank ? '' : repaired(String(address)), name);
            page.report('open', isBlank ? 'about:blank' : new URL(repaired(String(address)), document.baseURI).href);
            return null;
        });

        repairAddresses();
        watchTitle(page);
        watchPointer(page);
        watchTab(page);
        watchLists(page);
        watchCopies(page);
        listenAgain();
    }

    /// Whether a target is a frame that is there, below a window.
    function isFrame(window, name) {
        if (/^_(self|parent|top)$/i.test(name))
            return true;
        return Array.from({length: window.length}, (_, i) => window[i]).some(frame => {
            try {
                return frame.name === name && name !== '' || isFrame(frame, name);
            } catch {
                return false;  // of a foreign origin
            }
        });
    }

    /// "file://C:\dir\x.png" is no URL to the browser, which asks nobody for it.
    function repaired(address) {
        const found = /^\s*file:[\\/]{2}([a-z])[:|]([\\/].*)$/i.exec(address);
        return found ? 'file:///' + found[1] + ':' + found[2].replace(/\\/g, '/') : address;
    }

    function repairAddresses() {
        const repairAttribute = (element, name) => {
            const address = element.getAttribute(name);
            if (address !== null && repaired(address) !== address)
                element.setAttribute(name, repaired(address));
        };
        const names = ['src', 'href', 'background', 'data'];
        const repairElement = element => {
            for (const name of names) {
                if (element.hasAttribute(name))
                    repairAttribute(element, name);
            }
        };
        new MutationObserver(records => {
            for (const record of records) {
                if (record.type === 'attributes') {
                    repairAttribute(record.target, record.attributeName);
                    continue;
                }
                for (const node of record.addedNodes) {
                    if (node.nodeType !== Node.ELEMENT_NODE)
                        continue;
                    repairElement(node);
                    node.querySelectorAll('[src],[href],[background],[data]').forEach(repairElement);
                }
            }
        }).observe(document, {subtree: true, childList: true, attributes: true, attributeFilter: names});
    }

    function watchTitle(page) {
        if (window !== window.top)
            return;
        let told = '';
        const tell = () => {
            if (document.title !== told)
                page.report('title', told = document.title);
        };
        // The element comes and goes with whatever writes the document.
        new MutationObserver(tell).observe(document, {subtree: true, childList: true, characterData: true});
    }

    /// Listens to events of the window also in documents that are written in this one's place: document.open takes all
    /// listeners away.
    function listen(type, listener, options) {
        listeners.push([type, listener, options]);
        addEventListener.call(window, type, listener, options);
    }

    function listenAgain() {
        // One that is still there isn't added a second time.
        new MutationObserver(() => {
            for (const each of listeners)
                addEventListener.call(window, ...each);
        }).observe(document, {childList: true});
    }

    function watchPointer(page) {
        let cursor = '';
        let tip = '';
        const isText = event => {
            const range = document.caretRangeFromPoint(event.clientX, event.clientY);
            if (range?.startContainer.nodeType !== Node.TEXT_NODE)
                return false;
            const text = document.createRange();
            text.selectNodeContents(range.startContainer);
            return Array.from(text.getClientRects()).some(box => event.clientX >= box.left && event.clientX < box.right &&
                event.clientY >= box.top && event.clientY < box.bottom);
        };
        listen('mousemove', event => {
            const element = event.target;
            if (!(element instanceof Element))
                return;
            let shape = getComputedStyle(element).cursor;
            if (shape === 'auto')
                shape = getComputedStyle(element).userSelect !== 'none' && isText(event) ? 'text' : 'default';
            if (shape !== cursor)
                page.report('cursor', cursor = shape);
            const titled = element.closest('[title]')?.getAttribute('title') ?? '';
            if (titled !== tip)
                page.report('tip', tip = titled);
        }, {capture: true, passive: true});
        listen('contextmenu', event => {
            if (event.defaultPrevented)
                return;
            event.preventDefault();
            page.report('menu', event.clientX, event.clientY, event.target);
        });
    }

    /// The list of a select element is a window of its own, which no picture of the page shows: the program shows it.
    function watchLists(page) {
        const open = (event, select) => {
            event.preventDefault();
            select.focus();
            const {left, top, right, bottom} = select.getBoundingClientRect();
            // One line for each, which begins with what may be done with it.
            const entries = Array.from(select.options, option =>
                (option.disabled || option.parentNode.disabled ? '-' : '+') + option.text.replaceAll('\n', ' '));
            page.report('list', select, Math.round(left), Math.round(top), Math.round(right), Math.round(bottom),
                select.selectedIndex, entries.join('\n'));
        };
        const listOf = event => {
            const select = event.target instanceof Element ? event.target.closest('select') : null;
            return select && !select.disabled && !select.multiple && select.size <= 1 && !event.defaultPrevented ?
                select : null;
        };
        listen('mousedown', event => {
            const select = event.button === 0 ? listOf(event) : null;
            if (select)
                open(event, select);
        });
        listen('keydown', event => {
            const select = event.key === 'F4' || event.key === ' ' || event.key === 'Enter' ||
                (event.altKey && (event.key === 'ArrowDown' || event.key === 'ArrowUp')) ? listOf(event) : null;
            if (select)
                open(event, select);
        });
    }

    function watchCopies(page) {
        const tell = event => {
            // A page that puts something of its own there prevents the default.
            let text = event.defaultPrevented ? event.clipboardData.getData('text/plain') : '';
            if (!event.defaultPrevented) {
                const {activeElement} = document;
                const isField = activeElement && typeof activeElement.selectionStart === 'number';
                text = isField ? activeElement.value.slice(activeElement.selectionStart, activeElement.selectionEnd) :
                    String(document.getSelection());
            }
            if (text !== '')
                page.report('copied', text);
        };
        listen('copy', tell);
        listen('cut', tell);

        // The browser's clipboard is written by copying: what the page would copy, and says of it, doesn't count then.
        let given = null;
        const give = event => {
            if (given === null)
                return;
            event.clipboardData?.setData('text/plain', given);
            event.preventDefault();
            event.stopImmediatePropagation();
        };
        listen('beforecopy', give, true);
        listen('copy', give, true);
        if (window === window.top) {
            page.setClipboard = text => {
                given = text;
                document.execCommand('copy');
                given = null;
            };
        }
    }

    function watchTab(page) {
        let tab = null;
        listen('keydown', event => {
            tab = event.key === 'Tab' && !event.ctrlKey && !event.altKey ? event : null;
        }, true);
        listen('blur', event => {
            if (event.target === window && tab && !tab.defaultPrevented)
                page.report('tab', !tab.shiftKey);
            tab = null;
        });
    }
})
