"""zeep against the embedded bus: zeep_client.py URL query|refused"""
import pathlib
import sys

import zeep
import zeep.plugins

from checks import expect

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
client = zeep.Client(str(folder / "content.wsdl"), transport=LocalFiles(timeout=10, operation_timeout=10), plugins=[history])
service = client.create_service("{http://developer.vantor.example/schemas/contentManagerService/1}contentManagerService", url)


types = "{http://developer.vantor.example/schemas/tavel/3/}"


def query(path):
    properties = client.get_type(types + "propEnumArray")(["defaultName", "searchPath", "hidden", "name"])
    return service.query(path, properties, zeep.xsd.SkipValue, {"maxObjects": 10})


if case == "query":
    found = query("/content//folder[@name='Regions']/report")
    expect(len(found) == 3, f"three objects, got {found}")
    by_name = {each.defaultName.value: each for each in found}
    expect("Ålesund & coast" in by_name, f"Ålesund & coast among {list(by_name)}")
    expect(by_name["South"].hidden.value is False, "a boolean")
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
