// Has a window, and those in it that are from the same site and have no script of their own, ask before something is
// pasted there, and before it is written into a field. The question is a prompt that begins with the token, because the
// page waits for its answer; none is shown. Frames that may not ask take what the author pastes by a key. That a paste
// has ended is written to the console.
//
// What a field holds before a paste is kept for quillonPasted() of the window at the top, which tells of the last one
// what the field holds by then; pages do not see it. A field that is too long, for a password, or of another site's
// frame is not told of.
//
// Called with the token, gives the function that looks for windows to be watched.
token => {
    const patience = 1000, longest = 200000;
    let isPasting = false, lastPress = 0, lastKey = 0;
    const isRefused = question => {
        const answer = prompt(token + question);
        return answer == 'no' || (answer === null && Date.now() - lastKey > patience);
    };
    const stop = event => {
        event.preventDefault();
        event.stopImmediatePropagation();
    };
    const kindOf = place => {
        if (place.matches(':read-write') || place.localName.includes('-'))
            return 'text';
        return place.readOnly || place.matches('input:disabled, textarea:disabled') ? 'locked' : 'none';
    };
    const read = (field, text) => typeof text == 'string' && text.length <= longest && field.type !== 'password' && {
        text,
        start: field.selectionStart,
        end: field.selectionEnd,
        isUnintelligible: field.validity?.badInput === true,
    };
    const readerOf = place => {
        if (place.isContentEditable !== true)
            return () => read(place, place.value);
        let whole = place;
        while (whole.parentElement?.isContentEditable)
            whole = whole.parentElement;
        return () => read({}, whole.innerText);
    };
    // Windows of another site refuse it.
    const keep = place => {
        try {
            const look = readerOf(place), before = look(), type = place.isContentEditable ? 'rich' : place.type;
            top.quillonPasted = () => {
                const now = place.isConnected && look();
                return before && now ? { ...now, type, before: before.text, after: now.text, start: before.start,
                                         end: before.end } : null;
            };
        } catch {
            return;
        }
    };
    const paste = event => {
        if (!event.isTrusted)
            return;
        isPasting = true;
        setTimeout(() => {
            isPasting = false;
            console.debug(token);
        });
        if (isRefused(` paste ${kindOf(event.composedPath()[0])} ${window == top} ${lastPress}`))
            stop(event);
        else
            keep(event.composedPath()[0]);
    };
    const insert = event => {
        const isPaste = event.type == 'textInput' || event.inputType == 'insertFromPaste';
        if (isPasting && event.isTrusted && isPaste && isRefused(' insert'))
            stop(event);
    };
    const key = event => {
        if (event.isTrusted && (event.ctrlKey || event.shiftKey) && /^(v|insert)$/i.test(event.key))
            lastKey = Date.now();
    };
    const press = event => {
        if (event.isTrusted)
            lastPress = Date.now();
    };
    const watchAll = () => watch(window);
    const listeners = { paste, beforeinput: insert, textInput: insert, keydown: key, pointerdown: press,
                        blur: watchAll };
    const watch = frame => {
        try {
            if (frame != window && frame.quillonPastes)
                return frame.quillonPastes();
            for (const type in listeners)
                frame.addEventListener(type, listeners[type], true);
        } catch {
            return;
        }
        for (let inner = 0; inner < frame.length; ++inner)
            watch(frame[inner]);
    };
    // Frames that a script makes have no address of their own, and may take the focus at once.
    new MutationObserver(() => window.length && watchAll()).observe(document, { childList: true, subtree: true });
    setInterval(() => window.length && watchAll(), 200);
    return watchAll;
}
