// Looks at the forms of a page and types into them, for the program alone: it runs in a world that the page cannot see.
// Fields in frames of other sites are out of its reach, and so is whatever is hidden, locked, or holds something.
//
// Gives { look(), fill(look, place, text), read(look, place) }; what look() finds stays known by its number and place
// until the next look, or until the page goes.
(() => {
    const mostLooked = 20000, mostTold = 500, mostFrames = 50, deepest = 5, mostTime = 1500;
    const longest = 200, mostNodes = 60, mostOptions = 300, smallest = 8, faintest = 0.1, longestRead = 200000;
    const types = ['text', 'email', 'url', 'tel', 'number', 'date', 'textarea', 'select', 'rich'];
    const fieldsOfPage = 'input, textarea, select, [contenteditable]';
    const silent = 'select, textarea, script, style, noscript, option';
    let number = 0, known = [];

    const isOwn = frame => {
        try {
            return frame.contentDocument && frame.contentWindow.origin === window.origin;
        } catch {
            return false;
        }
    };
    const typeOf = field => {
        if (field.localName == 'select')
            return field.multiple ? 'list' : 'select';
        if (field.localName == 'input' || field.localName == 'textarea')
            return field.type;
        return 'rich';
    };

    // Texts are read to a bound, whatever the page is made of.
    const textOf = node => {
        let text = '', left = mostNodes;
        const walk = node && document.createTreeWalker(node, NodeFilter.SHOW_TEXT);
        while (walk && left-- && text.length < longest && walk.nextNode())
            if (!walk.currentNode.parentElement?.closest(silent))
                text += walk.currentNode.data.slice(0, longest) + ' ';
        return text.replace(/\s+/g, ' ').trim().slice(0, longest);
    };
    const attribute = (field, name) => (field.getAttribute(name) ?? '').slice(0, longest);
    const labelOf = field => {
        const labels = [...(field.labels ?? [])].slice(0, 3).map(textOf);
        const ids = attribute(field, 'aria-labelledby').split(/\s+/).slice(0, 3);
        const named = ids.map(id => id && textOf(field.getRootNode().getElementById?.(id)));
        return [...labels, ...named].filter(text => text).join(' ') || attribute(field, 'aria-label') ||
            attribute(field, 'title');
    };
    const cellsBefore = cell => {
        const row = cell.parentElement, above = row.previousElementSibling;
        const head = cell.closest('table')?.rows[0];
        return [cell.previousElementSibling, above?.cells?.[cell.cellIndex], head?.cells[cell.cellIndex]];
    };
    const textBefore = field => {
        const walk = field.ownerDocument.createTreeWalker(field.ownerDocument.body);
        walk.currentNode = field;
        for (let left = mostNodes; left-- && walk.previousNode();) {
            const node = walk.currentNode;
            if (node.nodeType == Node.ELEMENT_NODE && node.matches(fieldsOfPage))
                return '';
            if (node.nodeType == Node.TEXT_NODE && node.data.trim() && !node.parentElement?.closest(silent))
                return node.data.replace(/\s+/g, ' ').trim().slice(-longest);
        }
        return '';
    };
    const aroundOf = field => {
        const cell = field.closest('td');
        const texts = cell ? cellsBefore(cell).map(each => each && !each.querySelector(fieldsOfPage) && textOf(each)) : [];
        const own = cell ? textOf(cell) : '';
        return texts.find(text => text) || own || textBefore(field);
    };
    const groupOf = field => {
        const set = field.closest('fieldset, [role=group], section');
        return set ? textOf(set.querySelector('legend, h1, h2, h3, h4, h5, h6')) || attribute(set, 'aria-label') : '';
    };
    const describe = field => {
        const type = typeOf(field);
        return {
            type,
            label: labelOf(field),
            name: attribute(field, 'name'),
            id: attribute(field, 'id'),
            autocomplete: attribute(field, 'autocomplete'),
            placeholder: attribute(field, 'placeholder') || attribute(field, 'aria-placeholder'),
            around: aroundOf(field),
            group: groupOf(field),
            maxLength: field.maxLength ?? -1,
            options: type == 'select' ? [...field.options].slice(0, mostOptions).map(each => each.text.slice(0, longest)) : [],
        };
    };

    const isChoosing = option => !option || !option.value || /^\W*$|select|choose|please|pick|^\W*-/i.test(option.text);
    const isEmpty = field => {
        if (field.localName == 'select')
            return field.selectedIndex <= 0 && isChoosing(field.options[field.selectedIndex]);
        if (typeOf(field) == 'rich')
            return !field.textContent.trim() && !field.querySelector('img, table, iframe');
        return field.value === '' && !field.validity.badInput;
    };
    const isLocked = field => field.matches(':disabled') || field.readOnly === true || field.inert === true ||
        field.closest('[inert], [aria-hidden=true]') !== null ||
        (typeOf(field) == 'rich' && !field.isContentEditable);
    const isClipping = (style, box) => style.clip != 'auto' || /inset|circle\(0|polygon/.test(style.clipPath) ||
        (style.overflow != 'visible' && (box.width < smallest || box.height < smallest));
    const isVisible = field => {
        const box = field.getBoundingClientRect(), view = field.ownerDocument.defaultView;
        if (box.width < smallest || box.height < smallest)
            return false;
        if (box.right + view.scrollX <= 0 || box.bottom + view.scrollY <= 0)
            return false;
        const own = getComputedStyle(field);
        if (own.visibility != 'visible' || (own.webkitTextSecurity ?? 'none') != 'none')
            return false;
        let opacity = 1;
        for (let each = field; each; each = each.parentElement) {
            const style = getComputedStyle(each);
            opacity *= style.opacity;
            if (opacity < faintest || /opacity\(/.test(style.filter) || isClipping(style, each.getBoundingClientRect()))
                return false;
        }
        const frame = view.frameElement;
        return !frame || isVisible(frame);
    };

    // What lies over a field counts even where clicks go through it.
    const elementAt = (root, x, y) => {
        const page = root.ownerDocument ?? root, sheet = new page.defaultView.CSSStyleSheet();
        const before = page.adoptedStyleSheets;
        sheet.replaceSync('* { pointer-events: auto !important }');
        page.adoptedStyleSheets = [...before, sheet];
        const found = root.elementFromPoint(x, y);
        page.adoptedStyleSheets = before;
        return found;
    };
    const isOn = (element, found) => found && (element.contains(found) ||
        [...(element.labels ?? [])].some(label => label === found || label.contains(found)));
    const isOnTopAt = (element, x, y) => {
        if (!isOn(element, elementAt(element.getRootNode(), x, y)))
            return false;
        const frame = element.ownerDocument.defaultView.frameElement;
        if (!frame)
            return true;
        const box = frame.getBoundingClientRect();
        return isOnTopAt(frame, box.left + frame.clientLeft + x, box.top + frame.clientTop + y);
    };
    const isOnTop = field => {
        field.scrollIntoView({ block: 'center', inline: 'center', behavior: 'instant' });
        const box = field.getBoundingClientRect(), view = field.ownerDocument.documentElement;
        const left = Math.max(box.left, 0), width = Math.min(box.right, view.clientWidth) - left;
        return width >= smallest &&
            [0.1, 0.5, 0.9].every(part => isOnTopAt(field, left + width * part, box.top + box.height / 2));
    };

    const isOfPage = field => {
        if (!field.isConnected || !field.ownerDocument.defaultView)
            return false;
        const frame = field.ownerDocument.defaultView.frameElement;
        return frame ? isOwn(frame) && isOfPage(frame) : field.ownerDocument === document;
    };
    const canTake = field => types.includes(typeOf(field)) && !isLocked(field) && isEmpty(field);

    const look = () => {
        const end = performance.now() + mostTime;
        let looked = 0, frames = 0, isCut = false;
        known = [];
        const add = field => known.push({ field, signs: describe(field) });
        const consider = field => {
            isCut ||= ++looked > mostLooked || known.length >= mostTold || performance.now() > end;
            try {
                if (!isCut && canTake(field) && isVisible(field))
                    add(field);
            } catch {} // Forms can be made to answer for their parts.
            return !isCut;
        };
        const walk = (page, depth) => {
            if (page.designMode == 'on' && page.body)
                consider(page.body);
            else
                for (const field of page.querySelectorAll(fieldsOfPage))
                    if (!consider(field))
                        return;
            for (const frame of page.querySelectorAll('iframe, frame')) {
                if (++frames > mostFrames || depth >= deepest)
                    return void (isCut = true);
                if (isOwn(frame))
                    walk(frame.contentDocument, depth + 1);
            }
        };
        walk(document, 0);
        number = 1 + Math.floor(Math.random() * 1e9);
        return { number, isCut, fields: known.map(({ signs }, place) => ({ ...signs, number: place })) };
    };

    const obstacle = ({ field, signs }) => {
        if (!isOfPage(field))
            return 'gone';
        if (JSON.stringify(describe(field)) !== JSON.stringify(signs))
            return 'changed';
        if (isLocked(field))
            return 'locked';
        if (!isEmpty(field))
            return 'full';
        if (!isVisible(field))
            return 'hidden';
        return isOnTop(field) ? '' : 'covered';
    };
    const write = (field, text) => {
        if (field.localName == 'select') {
            const option = [...field.options].findIndex(each => each.text.replace(/\s+/g, ' ').trim() === text && !each.disabled);
            if (option >= 0)
                field.selectedIndex = option;
        } else if (typeOf(field) == 'rich') {
            field.innerText = text;
        } else {
            field.value = field.maxLength >= 0 ? text.slice(0, field.maxLength) : text;
        }
        field.dispatchEvent(new InputEvent('input', { bubbles: true, composed: true, inputType: 'insertText', data: text }));
        field.dispatchEvent(new Event('change', { bubbles: true }));
    };
    const fill = (look, place, text) => {
        const entry = look === number ? known[place] : null;
        if (!entry)
            return 'left';
        const before = obstacle(entry);
        if (before)
            return before;
        const { field } = entry, tell = (...types) => types.forEach(type => {
            // The author is in the program's window, and a page without the keyboard would hear of no focus.
            if (!field.ownerDocument.hasFocus())
                field.dispatchEvent(new FocusEvent(type, { bubbles: type.length > 5, composed: true }));
        });
        field.focus({ preventScroll: true });
        tell('focus', 'focusin');
        const after = obstacle(entry); // The page has heard of the focus.
        if (after)
            return after;
        write(field, text);
        tell('blur', 'focusout');
        return 'typed';
    };
    const read = (look, place) => {
        const entry = look === number ? known[place] : null;
        if (!entry || !isOfPage(entry.field) || typeOf(entry.field) !== entry.signs.type)
            return null;
        const { field, signs: { type } } = entry;
        const after = type == 'select' ? field.options[field.selectedIndex]?.text ?? '' :
            type == 'rich' ? field.innerText : field.value;
        return after.length > longestRead ? null : { type, before: '', after, start: 0, end: 0,
                                                     isUnintelligible: field.validity?.badInput === true };
    };
    return { look, fill, read };
})()
