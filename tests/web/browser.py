"""The page in a real browser, and what a person does there."""
import base64
import contextlib
import json
import pathlib
import sys
import tempfile
import time

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

CHECKOUT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(CHECKOUT / "tests/system"))

AXE = CHECKOUT / "build/web/node_modules/axe-core/axe.min.js"
RESULTS = CHECKOUT / "build/results/web"
ENOUGH = 20  # seconds, on a machine that is busy

OPTIONS = ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-dev-shm-usage",
           "--disable-background-networking", "--disable-component-update", "--disable-sync", "--no-proxy-server"]

# Remembers when the picture stood there for the first time, and every error that nobody caught.
WATCH = """
window.errors = [];
addEventListener("error", (event) => window.errors.push(event.message));
addEventListener("securitypolicyviolation", (event) => window.errors.push(event.violatedDirective));
new MutationObserver((_, observer) => {
  if (!document.querySelector("#picture svg")) return;
  window.firstPicture = performance.now();
  observer.disconnect();
}).observe(document, { childList: true, subtree: true });
"""


@contextlib.contextmanager
def chromium():
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as profile:
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        for option in [*OPTIONS, f"--user-data-dir={profile}"]:
            options.add_argument(option)
        driver = webdriver.Chrome(options=options, service=Service("/usr/bin/chromedriver"))
        driver.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {"source": WATCH})
        try:
            yield driver
        finally:
            driver.quit()


class Page:
    def __init__(self, driver, url):
        self.driver = driver
        self.look()
        driver.get("about:blank")
        driver.get(url)
        self.wait(lambda: self.all("#picture svg") or self.all("body.lost"))

    # --- how it is looked at

    def look(self, width=1400, scheme="light", motion="no-preference"):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                    {"width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False})
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": [
            {"name": "prefers-color-scheme", "value": scheme}, {"name": "prefers-reduced-motion", "value": motion}]})
        time.sleep(0.2)  # the page draws anew

    def screenshot(self, name, most=4000):
        RESULTS.mkdir(parents=True, exist_ok=True)
        width, height = self.js("return [innerWidth, document.documentElement.scrollHeight]")
        clip = {"x": 0, "y": 0, "width": width, "height": min(height, most), "scale": 1}
        shot = self.driver.execute_cdp_cmd("Page.captureScreenshot", {"captureBeyondViewport": True, "clip": clip})
        path = RESULTS / f"{name}.png"
        path.write_bytes(base64.b64decode(shot["data"]))
        return path

    def js(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def wait(self, condition, seconds=ENOUGH):
        deadline = time.monotonic() + seconds
        while not (found := condition()):
            assert time.monotonic() < deadline, f"not within {seconds} s; the page says: {self.text('body')}"
            time.sleep(0.05)
        return found

    # --- what stands there

    def all(self, css):
        return self.driver.find_elements(By.CSS_SELECTOR, css)

    def one(self, css):
        return self.driver.find_element(By.CSS_SELECTOR, css)

    def text(self, css):
        return self.js("return document.querySelector(arguments[0]).innerText", css)

    def shows(self, css):
        return any(element.is_displayed() for element in self.all(css))

    def picture(self):
        return self.js("return [...document.querySelectorAll('#picture [data-text]')].map((node) => node.dataset.text)")

    def value(self, name, key):
        return self.field(name, key).get_attribute("value")

    def message(self, name, key):
        return self.text(f"[id='field-{name}-{key}-message']")

    def violations(self):
        """What axe-core holds against the page as it stands."""
        self.js("for (const animation of document.getAnimations()) animation.finish();")
        if not self.js("return Boolean(window.axe)"):
            self.js(AXE.read_text())
        found = self.driver.execute_async_script("axe.run().then((found) => arguments[0](found.violations));")
        return [f"{one['id']}: {json.dumps([node['html'][:200] for node in one['nodes']])}" for one in found]

    # --- what a person does

    def field(self, name, key):
        return self.one(f"[id='field-{name}-{key}']")

    def type(self, name, key, value):
        field = self.field(name, key)
        field.send_keys(Keys.CONTROL, "a")
        field.send_keys(value or Keys.DELETE)

    def choose(self, name, key, value):
        self.one(f"[id='field-{name}-{key}'] option[value='{value}']").click()

    def click(self, css):
        self.wait(lambda: self.shows(css) and self.one(css).is_enabled())
        self.one(css).click()

    def press(self, *keys):
        for key in keys:
            self.driver.switch_to.active_element.send_keys(key)

    def tab_to(self, css):
        """Presses Tab until the element has the focus."""
        for _ in range(60):
            if self.js("return document.activeElement.matches(arguments[0])", css):
                return
            self.press(Keys.TAB)
        raise AssertionError(f"Tab does not come to {css}")

    def apply(self, name, key, value):
        self.type(name, key, value)
        self.click("#review")
        self.click("#plan-apply")
        self.wait(lambda: self.shows("#waiting"))
