"use strict";

// The player of parts/player.inc: four buttons and a picture of the sound to jump by. Times in
// seconds; the sound is eight bits at 11025 samples a second behind a head of 44 bytes.
{
  const player = document.querySelector(".player");
  const sound = player.querySelector("audio");
  const waves = player.querySelector(".waves");
  const buttons = [...player.querySelectorAll("button")];
  const startOf = button => button.dataset.start / 1000;

  const asTime = seconds =>
    Math.floor(seconds / 60) + ":" + String(Math.floor(seconds % 60)).padStart(2, "0");

  function show() {
    const at = sound.currentTime;
    const length = sound.duration || 0;
    waves.style.setProperty("--played", length ? at / length : 0);
    const current = buttons.filter(button => startOf(button) <= at + 0.01).pop();
    for (const button of buttons) button.setAttribute("aria-pressed", button === current);
    player.querySelector(".place").textContent =
      asTime(at) + " of " + asTime(length) + ", byte " + (44 + Math.floor(at * 11025));
  }

  function jump(seconds) {
    sound.currentTime = seconds;
    show();
  }

  for (const button of buttons) button.onclick = () => jump(startOf(button));
  waves.onclick = event => {
    const box = waves.getBoundingClientRect();
    jump((event.clientX - box.left) / box.width * sound.duration);
  };
  for (const event of ["timeupdate", "seeking", "seeked"]) sound.addEventListener(event, show);

  const begin = () => jump(startOf(buttons[player.dataset.part - 1]));
  if (sound.readyState > 0) begin();
  else sound.addEventListener("loadedmetadata", begin, {once: true});

  const ask = document.querySelector("#ask");
  if (ask) ask.onclick = async () => {
    const answer = await fetch(sound.src, {headers: {Range: "bytes=211724-211739"}});
    const bytes = new Uint8Array(await answer.arrayBuffer());
    document.querySelector("#answer").textContent =
      answer.status + " " + answer.statusText +
      "\nContent-Range: " + answer.headers.get("Content-Range") +
      "\n\n" + [...bytes].map(byte => byte.toString(16).padStart(2, "0")).join(" ");
  };
}
