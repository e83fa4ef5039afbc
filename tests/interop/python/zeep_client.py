"""zeep against the embedded bus: zeep_client.py URL query|refused"""
import pathlib
import sys

import zeep
import zeep.plugins

from checks import expect

SERVICE = "{http://developer.vantor.example/schemas/contentManagerService/1}"
TYPES = "{http://developer.vantor.example/schemas/tavel/3/}"
url, case = sys.argv[1:]
folder = pathlib.Path(__file__).resolve().parent.parent


class LocalFiles(zeep.Transport):
    """Takes the schema of the encoding, which zeep asks the network for, from beside content.wsdl."""

    def load(self, url):
        if url == "http://schemas.xmlsoap.org/soap/encoding/":
            return (folder / "encoding.xsd").read_bytes()
        return super().load(url)

    def _load_remote_data(self, url):
        raise RuntimeError(f"zeep asks for {url}")


history = zeep.plugins.HistoryPlugin()
transport = LocalFiles(timeout=10, operation_timeout=10)
client = zeep.Client(str(folder / "content.wsdl"), transport=transport, plugins=[history])
service = client.create_service(SERVICE + "contentManagerService", url)


def query(path):
    properties = client.get_type(TYPES + "propEnumArray")(["defaultName", "searchPath", "hidden", "name"])
    return service.query(path, properties, zeep.xsd.SkipValue, {"maxObjects": 10})


if case == "query":
    found = query("/content//folder[@name='Regions']/report")
    expect(len(found) == 3, f"three objects, got {found}")
    by_name = {each.defaultName.value: each for each in found}
    expect("Ålesund & coast" in by_name, f"Ålesund & coast among {list(by_name)}")
    south = by_name["South"]
    expect(type(south).__name__ == "report", f"a report, got {type(south).__name__}")
    expect(south.hidden.value is False, f"a boolean, got {south.hidden.value!r}")
else:
    try:
        query("/content/folder[@name='Payroll']/*")
        expect(False, "a fault")
    except zeep.exceptions.Fault:
        # zeep looks for the parts of a fault without their namespace, so they are read from the envelope.
        fault = history.last_received["envelope"].find(".//{*}Fault")
        code, text = fault.findtext("{*}faultcode"), fault.findtext("{*}faultstring")
        expect(code.endswith("Client"), f"the code Client, got {code}")
        expect(text == "The content manager refused the request.", f"the text, got {text}")
        codes = fault.xpath("*//*[local-name()='errorCode']/text()")
        expect(codes == ["cmNoPermission"], f"the code of the detail, got {codes}")
