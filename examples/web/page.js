// An example sends nothing anywhere: it says what the form would have sent.
const port = location.port;
for (const field of document.querySelectorAll("kv-signature")) field.setAttribute("port", port);

for (const form of document.forms) {
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    const sent = [...new FormData(form)].map(([name, value]) => `${name}: ${String(value).length} characters`);
    form.querySelector("output").textContent = `Sent ${sent.join(", ") || "nothing"}.`;
  });
}
