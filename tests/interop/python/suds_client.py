"""suds against the embedded bus: suds_client.py URL query|refused"""
import logging
import pathlib
import sys

import suds
from suds.client import Client

from checks import expect

logging.getLogger("suds").setLevel(logging.CRITICAL)
TYPES = "{http://developer.vantor.example/schemas/tavel/3/}"
url, case = sys.argv[1:]
wsdl = pathlib.Path(__file__).resolve().parent.parent / "content.wsdl"
client = Client(wsdl.as_uri(), location=url, timeout=10, cache=None)


def query(path):
    options = client.factory.create(TYPES + "queryOptions")
    options.maxObjects = 10
    options.schemaInfo = False
    properties = ["defaultName", "searchPath", "hidden", "name"]
    return client.service.query(path, properties, [], options)


if case == "query":
    found = query("/content//folder[@name='Regions']/report")
    found = getattr(found, "item", found)
    expect(len(found) == 3, f"three objects, got {found}")
    by_name = {str(each.defaultName.value): each for each in found}
    expect("Ålesund & coast" in by_name, f"Ålesund & coast among {list(by_name)}")
    coast = by_name["Ålesund & coast"]
    expect(type(coast).__name__ == "report", f"a report, got {type(coast).__name__}")
    expect(coast.hidden.value is False, f"a boolean, got {coast.hidden.value!r}")
else:
    try:
        query("/content/folder[@name='Payroll']/*")
        expect(False, "a fault")
    except suds.WebFault as fault:
        expect(str(fault.fault.faultcode).endswith("Client"), f"the code Client, got {fault.fault.faultcode}")
        expect(fault.fault.faultstring == "The content manager refused the request.", f"the text, got {fault}")
        detail = fault.fault.detail
        expect(detail.exception.errorCode == "cmNoPermission", f"the code of the detail, got {detail}")
