"""What is measured. Each part prints its table and tells whether its targets were met."""

import json
import sys
from typing import Callable, NamedTuple

import capture
import directory
import handover
import option_tree
import paint
import picture_index
import properties
import sample_picture
import select_destination


class Part(NamedTuple):
    title: str
    measure: Callable


ALL = {
    "handover": Part("Hand-over to the system client", handover.measure),
    "paint": Part("From exec to the first painted dialog", paint.measure_queues),
    "discovery": Part("With announced printers", paint.measure_discovery),
    "select": Part("Choosing another destination", select_destination.measure),
    "directory": Part("Listing printers and classes", directory.measure),
    "capture": Part("Capturing standard input", capture.measure),
    "options": Part("The options of the largest driver", option_tree.measure),
    "properties": Part("The properties dialog", properties.measure),
    "sample": Part("Redrawing the sample picture", sample_picture.measure),
    "pictures": Part("The index of device pictures", picture_index.measure),
}

INSIDE = {
    "handover": handover.inside,
    "paint": paint.inside,
    "join": paint.inside_join,
    "select": select_destination.inside,
    "directory": directory.inside,
    "capture": capture.inside,
    "properties": properties.inside,
}


def run_inside(name, arguments):
    json.dump(INSIDE[name](**json.loads(arguments)), sys.stdout)
    return 0
