// Has a window, and those in it that are from the same site and have no script of their own, ask before something is
// pasted there, and before it is written into a field. The question is a prompt that begins with the token, because the
// page waits for its answer; none is shown. Frames that may not ask take what the author pastes by a key. That a paste
// has ended is written to the console.
//
// Called with the token, gives the function that looks for windows to be watched.
token => {
    const patience = 1000;
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
