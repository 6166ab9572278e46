"""python3 -m quillmark plot KIND MODEL RESULTDIR -o FILE [--shafts ID ...]

Draws one of the standard pictures of a run's results: campbell, modes or response. The
file's extension chooses the format (png, svg, pdf).
"""

import argparse
import sys

from . import QuillmarkError, read_results


def main(argv=None):
    parser = argparse.ArgumentParser(prog="python3 -m quillmark", description="Quillmark results from Python")
    sub = parser.add_subparsers(dest="command", required=True)
    plot = sub.add_parser("plot", help="draw a picture of the results of a run")
    plot.add_argument("kind", choices=["campbell", "modes", "response"])
    plot.add_argument("model", help="input file of the model")
    plot.add_argument("result_dir", help="result directory of the run")
    plot.add_argument("-o", "--output", required=True, help="picture file: .png, .svg or .pdf")
    plot.add_argument("--shafts", type=int, nargs="+", help="shaft IDs of the response plot")
    args = parser.parse_args(argv)

    from . import plot as plots

    try:
        results = read_results(args.model, args.result_dir)
        if args.kind == "response":
            plots.response(results, args.output, shafts=args.shafts)
        else:
            getattr(plots, args.kind)(results, args.output)
    except (QuillmarkError, ValueError) as e:
        print("quillmark plot: {}".format(e), file=sys.stderr)
        return 1
    print(args.output)
    return 0


if __name__ == "__main__":
    sys.exit(main())
