// Which company: a service that has several shows each at /NAME/, and gives no list of them away.
document.getElementById("door").addEventListener("submit", (event) => {
    event.preventDefault();
    const name = document.getElementById("name").value.trim();
    if (name) location.assign(new URL(`${encodeURIComponent(name)}/`, document.baseURI));
});
document.getElementById("name").focus();
