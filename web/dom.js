// Elements. Whatever comes from a company becomes a text node, never a part of the page.

/**
 * An element with its attributes and what it holds: texts, elements, lists of them; null and undefined are left out. An attribute that is
 * a function listens to the event of its name; true is an attribute without value; null and false leave it out.
 */
export function h(tag, attributes = {}, ...children) {
    return filled(document.createElement(tag), attributes, children);
}

/** The same, of a picture. */
export function svg(tag, attributes = {}, ...children) {
    return filled(document.createElementNS("http://www.w3.org/2000/svg", tag), attributes, children);
}

function filled(element, attributes, children) {
    for (const [name, value] of Object.entries(attributes)) {
        if (typeof value === "function") element.addEventListener(name, value);
        else if (value === true) element.setAttribute(name, "");
        else if (value !== null && value !== undefined && value !== false) element.setAttribute(name, String(value));
    }
    element.append(...children.flat(Infinity).filter((child) => child !== null && child !== undefined));
    return element;
}

/** A text of a company: its direction is its own, and does not turn what stands beside it. */
export function data(text) {
    return h("bdi", {}, String(text ?? ""));
}

/** Tells those who do not see the page. */
export function say(text) {
    document.getElementById("said").textContent = text;
}

/** Gives a file to the user. */
export function save(blob, name) {
    const address = URL.createObjectURL(blob);
    const link = h("a", { href: address, download: name });
    document.body.append(link);
    link.click();
    link.remove();
    setTimeout(() => URL.revokeObjectURL(address), 60_000);
}
